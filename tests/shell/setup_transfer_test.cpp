#include "core/state/merge.h"
#include "shell/setup_test.h"
#include "units/unit.h"

using enum BoxAnswer;

namespace {

const std::string kHeading = "It was not possible to find the following items in the Army Tables:";

TEST_F(SetupTest, ImportsTellsWhatItLacksAndWakesUpAfterEveryFailure) {
    Open();
    SetModified(true);
    const auto import = [this](const SWorkingFile& file, const std::string& source, const std::string& target,
                               const std::vector<std::string>& warnings, bool written = true) {
        SCOPED_TRACE(target);
        platform_.ExpectOpen(source, [&](const CFileDialog&) { EXPECT_FALSE(form_->isEnabled()); });
        platform_.ExpectSave(target, [&](const CFileDialog&) {
            const QWidget* button = MFormDriver::Find(*form_, QString::fromStdString(file.import));
            EXPECT_FALSE(button->isEnabledTo(form_.get()));  // of itself, not by the form alone
        });
        for (const std::string& warning : warnings)
            Expect(BoxKind::Warning, warning);
        if (written) Expect(BoxKind::Information, "Import complete");
        Click(file.import);
        platform_.Verify();
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        EXPECT_EQ(file.path() + Text(file.field), target + target);
        EXPECT_EQ(Modified(), "012");
        EXPECT_EQ(ReadBytes(target), written ? Content(file.document()) : "kept");
    };
    const std::string kept = Save("kept", "kept");
    ::chmod(kept.c_str(), 0400);
    const std::vector<std::string> missing[] = {
        {}, {kHeading + "\r\nUNIT: Guard, WEAPON: Laser"}, {kHeading + "\r\nGuard"}};
    for (const std::size_t number : {2u, 1u, 0u}) {
        const auto& file = kWorkingFiles[number];
        std::vector<std::string> warnings = missing[number];
        const std::string whole = Save("old", file.sampleV1);
        const std::string cut = Save("cut", file.sampleV1.substr(0, file.sampleV1.rfind("\"#P\"")));
        import(file, whole, folder_ / ("missing" + file.extension), warnings);
        warnings.push_back(file.importSaveFailure);
        import(file, whole, kept, warnings, false);
        // Of the list that is cut its guard has been read, and of the roster nothing.
        warnings = {file.importReadFailure};
        if (number == 1) warnings.push_back(missing[1][0]);
        import(file, cut, folder_ / ("part" + file.extension), warnings);

        // A run-time error, which nobody traps.
        const std::string content = Content(file.document());
        platform_.ExpectOpen(whole, [](const CFileDialog&) { throw CRuntimeError(ErrorNumber::DeviceError); });
        Expect(BoxKind::Critical, "Run-time error '57':\r\n\r\nDevice I/O error");
        Click(file.import);
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        EXPECT_EQ(Content(file.document()), content);
    }
    for (const auto& file : kWorkingFiles) {  // from the bottom up nothing lacks
        const std::string source = Save("old" + file.importExtension, file.sampleV1);
        import(file, source, folder_ / ("new" + file.extension), {});
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry) && Holds(Content(file.document()), "NAME=Old"));
        EXPECT_EQ(ReadBytes(source), file.sampleV1);
    }
}

// One element a letter, which tells where it comes from by its description.
template <class TList>
void Fill(TList& list, const std::string& letters, const std::string& origin) {
    for (const char letter : letters) {
        auto element = std::make_shared<typename TList::ItemPtr::element_type>();
        if constexpr (requires { element->NewUnit(CGenUnit::Single); }) {
            element->NewUnit(CGenUnit::Single);
        } else {
            element->NewItem(CEqItem::Weapon);
        }
        element->SetName(std::string(1, letter));
        element->SetDescr(origin);
        list.Add(element);
    }
}

// "A- B+": A as it was, B from the source.
template <class TList>
std::string Origins(const TList& list) {
    std::string text;
    for (const auto& element : list)
        text += element.Name() + (element.Descr() == "source" ? "+ " : "- ");
    return text;
}

struct SQuestion {
    std::string about;  // an element: is it to be replaced? Else the offer to let the answer hold for all
    BoxAnswer answer;
};

class Merge : public SetupTest {
  protected:
    // Merges into the document of `file`, which fails to read the source where `warning` says so.
    void TakeIn(const SWorkingFile& file, const std::string& source, const std::vector<SQuestion>& questions,
                const std::string& warning = "") {
        const std::string where = file.index == MGlobal::EquipmentDocument ? "equipment file" : "army list";
        platform_.ExpectOpen(source);
        if (!warning.empty()) Expect(BoxKind::Warning, warning);
        for (const auto& [about, answer] : questions) {
            if (about.starts_with("Substitute") || about.starts_with("Never")) {
                ExpectQuestion(about + "?", answer);
            } else {
                platform_.ExpectBox(BoxKind::Question, BoxButtons::YesNoCancel,
                                    about + " already exists in the " + where +
                                        ", would you like to replace it?\r\n\"Cancel\" terminates the merge.",
                                    answer);
            }
        }
        Expect(BoxKind::Information, "Merge terminated");
        Click(file.merge);
        platform_.Verify();
        EXPECT_EQ(Modified(), std::to_string(file.index));
        SetModified(false);
    }
    std::string SourceFile(CDocument& source) {
        EXPECT_TRUE(source.WriteInfo(folder_ / "source"));
        return folder_ / "source";
    }
};

TEST_F(Merge, EquipmentFollowsOneDecisionForBothLists) {
    const std::string all = "Substitute all existing ";
    struct {
        std::string accessories, weapons;  // of the source; the document holds A, B, C and X, Y, Z
        std::vector<SQuestion> questions;
        std::string result;
    } const cases[] = {
        {"D", "W", {}, "A- B- C- D+ / W+ X- Y- Z- "},
        {"ABD", "X", {{"A", Yes}, {all + "accessories", Yes}}, "A+ B+ C- D+ / X+ Y- Z- "},
        {"ABD", "XW", {{"A", No}, {"Never substitute existing accessories", Yes}}, "A- B- C- D+ / W+ X- Y- Z- "},
        {"ABC",
         "XY",
         {{"A", Yes}, {all + "accessories", No}, {"B", No}, {"C", Yes}, {"X", Yes}, {"Y", No}},
         "A+ B- C+ / X+ Y- Z- "},
        {"D", "XY", {{"X", Yes}, {all + "weapons", Yes}}, "A- B- C- D+ / X+ Y+ Z- "},
        {"0AD", "W", {{"A", Cancel}}, "0+ A- B- C- / X- Y- Z- "},
    };
    Open();
    for (const auto& test : cases) {
        SCOPED_TRACE(test.accessories + "/" + test.weapons + ": " + test.result);
        CArmyTables& tables = MGlobal::ArmyTables();
        tables.Clear();
        Fill(tables.ArmyAccessories(), "ABC", "document");
        Fill(tables.ArmyWeapons(), "XYZ", "document");
        CArmyTables source;
        Fill(source.ArmyAccessories(), test.accessories, "source");
        Fill(source.ArmyWeapons(), test.weapons, "source");
        TakeIn(kWorkingFiles[0], SourceFile(source), test.questions);
        EXPECT_EQ(Origins(tables.ArmyAccessories()) + "/ " + Origins(tables.ArmyWeapons()), test.result);
    }
}

TEST_F(Merge, ArmyListAsksInItsOwnWordsAndAnErrorHalfWayMarksIt) {
    Open();
    auto& units = MGlobal::ArmyList().ArmyUnits();
    Fill(units, "ab\xE9", "document");
    CArmyList source;
    Fill(source.ArmyUnits(), "0A\xC9", "source");
    const std::string path = SourceFile(source);
    {
        CBoxPlatform broken([](BoxButtons buttons) {
            if (buttons == BoxButtons::YesNoCancel) throw CRuntimeError(ErrorNumber::OutOfMemory);
        });
        broken.ExpectOpen(path);
        broken.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '7':\r\n\r\nOut of memory");
        Click("cmdArmyListMerge");
        EXPECT_EQ(Origins(units), "0+ a- b- \xE9- ");
        EXPECT_EQ(Modified(), "0");
        SetModified(false);
    }
    TakeIn(kWorkingFiles[1], path, {{"0", No}, {"Never substitute existing units", No}, {"A", Yes}, {"\xC3\x89", No}});
    EXPECT_EQ(Origins(units), "0+ A+ b- \xE9- ");
    TakeIn(kWorkingFiles[1], path, {{"0", Yes}, {"Substitute all existing units", Yes}});
    EXPECT_EQ(Origins(units), "0+ A+ b- \xC9+ ");
}

TEST_F(Merge, RefusesTheFileItselfAndGoesOnAfterAFailedRead) {
    OpenOnSamples();
    for (const std::size_t number : {0u, 1u}) {
        const auto& file = kWorkingFiles[number];
        const std::string content = Content(file.document());
        platform_.ExpectOpen(file.path());
        Expect(BoxKind::Warning, "You cannot merge data from the current file, choose a different file.");
        Click(file.merge);
        EXPECT_EQ(Modified(), "");

        // The same file under another spelling of its path.
        TakeIn(file, folder_ / ("./a" + file.extension), {{number == 0 ? "Plate" : "Guard", Cancel}});
        EXPECT_EQ(Content(file.document()), content);

        // More elements are announced than there are; the first one is new.
        const std::string other = Changed(file.sample, number == 0 ? "NAME=Laser" : "NAME=Guard", "NAME=Fresh");
        std::vector<SQuestion> questions;
        if (number == 1) questions = {{"Squad", No}, {"Never substitute existing units", No}};
        TakeIn(file, Save("short", Changed(other, number == 0 ? "COUNT=1" : "COUNT=2", "COUNT=9")), questions,
               file.readFailure);
        EXPECT_TRUE(Holds(Content(file.document()), "NAME=Fresh"));
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_EQ(ReadBytes(file.path()), file.sample);
    }
}

TEST_F(Merge, TakesTheObjectsThemselves) {
    CArmyList list;
    CArmyList source;
    Fill(list.ArmyUnits(), "A", "document");
    Fill(source.ArmyUnits(), "0", "source");
    MMerge::Merge(list, source);
    EXPECT_EQ(list.ArmyUnits().Share(1), source.ArmyUnits().Share(1));
}

TEST_F(SetupTest, UpdatesCostsTellsWhatItLacksAndSavesOnlyWhenAsked) {
    const std::string complete = "Recalculation Complete. Save changes to file?";
    struct {
        std::size_t number;
        std::string before, after;       // prices in the file
        std::function<void()> takeAway;  // what the update then misses
        std::string warning;
    } const cases[] = {
        {2, "POINTS=1,2", "POINTS=20,25", [] { MGlobal::ArmyList().Clear(); },
         "It was not possible to find the following units in the Army List:\r\nGuard"},
        // Two guards of 10, with the laser of 10 instead of 2.5.
        {1, "POINTS=20,25", "POINTS=20,40", [] { MGlobal::ArmyTables().Clear(); },
         kHeading + "\r\nUNIT: Guard, WEAPON: Laser"},
        {0, "POINTS=10,10", "POINTS=12,12",
         [] {
             CEqItem& plate = MGlobal::ArmyTables().ArmyAccessories().Item("Plate");
             plate.SetFullInfo(false);
             plate.SetName("Pl\xE4te");
         },
         "Errors occurred while recalculating costs on the following items:\r\nACCESSORY: Pl\xC3\xA4te"},
    };
    OpenOnSamples();
    Save("a.v2r", Changed(kRoster, "POINTS=20,25", "POINTS=1,2"));
    for (const auto& test : cases) {
        const auto& file = kWorkingFiles[test.number];
        SCOPED_TRACE(file.kind);
        MGlobal::LoadWorkingFiles();
        ExpectQuestion(complete, No);
        Click(file.update);
        EXPECT_TRUE(Holds(Content(file.document()), test.after));
        EXPECT_TRUE(Holds(ReadBytes(file.path()), test.before));
        EXPECT_EQ(Modified(), "");

        test.takeAway();
        ::chmod(file.path().c_str(), 0400);
        Expect(BoxKind::Warning, test.warning);
        ExpectQuestion(complete, Yes);
        Expect(BoxKind::Warning, file.saveFailure);
        Click(file.update);
        platform_.Verify();
    }
}

}  // namespace

#include "core/state/merge.h"
#include "shell/setup_test.h"
#include "units/unit.h"

using enum BoxAnswer;

namespace {

const std::string kHeading = "It was not possible to find the following items in the Army Tables:";

TEST_F(SetupTest, ImportsFromTheBottomUp) {
    Open();
    SetModified(true);
    for (const auto& file : kWorkingFiles) {
        SCOPED_TRACE(file.kind);
        const std::string source = Save("old" + file.importExtension, file.sampleV1);
        const std::string target = folder_ / ("new" + file.extension);
        platform_.ExpectOpen(source, [&](const CFileDialog&) { EXPECT_FALSE(form_->isEnabled()); });
        platform_.ExpectSave(target, [&](const CFileDialog&) { EXPECT_FALSE(Enabled(file.import)); });
        Expect(BoxKind::Information, "Import complete");
        Click(file.import);
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        EXPECT_EQ(file.path() + Text(file.field), target + target);
        EXPECT_EQ(ReadBytes(target), Content(file.document()));
        EXPECT_TRUE(Holds(ReadBytes(target), file.sampleEntry) && Holds(ReadBytes(target), "NAME=Old"));
        EXPECT_EQ(ReadBytes(source), file.sampleV1);
        EXPECT_EQ(Modified(), "012");
    }
}

TEST_F(SetupTest, ImportTellsWhatItLacksAndWakesUpAfterEveryFailure) {
    Open();
    const std::string missing[] = {"", kHeading + "\r\nUNIT: Guard, WEAPON: Laser", kHeading + "\r\nGuard"};
    for (const std::size_t number : {2u, 1u, 0u}) {
        const auto& file = kWorkingFiles[number];
        SCOPED_TRACE(file.kind);
        const std::string whole = Save("old" + file.importExtension, file.sampleV1);
        const std::string cut =
            Save("cut" + file.importExtension, file.sampleV1.substr(0, file.sampleV1.rfind("\"#P\"")));
        const std::string kept = Save("kept" + file.extension, "kept");
        const auto import = [&](const std::string& source, const std::string& target, bool read, bool written) {
            platform_.ExpectOpen(source);
            platform_.ExpectSave(target);
            if (!read) Expect(BoxKind::Warning, file.importReadFailure);
            // Of the list that is cut its guard has been read, and of the roster nothing.
            const bool lacks = source == whole || (source == cut && file.index == MGlobal::ArmyListDocument);
            if (lacks && !missing[number].empty()) Expect(BoxKind::Warning, missing[number]);
            Expect(written ? BoxKind::Information : BoxKind::Warning,
                   written ? "Import complete" : file.importSaveFailure);
            Click(file.import);
            platform_.Verify();
            EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
            EXPECT_EQ(file.path() + Text(file.field), target + target);
            EXPECT_EQ(Modified(), "");
        };
        import(whole, folder_ / "missing", true, true);
        import(cut, folder_ / "cut", false, true);
        EXPECT_EQ(ReadBytes(folder_ / "cut"), Content(file.document()));
        import(folder_.Path(), folder_ / "unread", false, true);
        import(whole, folder_ / "none/x", true, false);
        ::chmod(kept.c_str(), 0400);
        import(whole, kept, true, false);
        EXPECT_EQ(ReadBytes(kept), "kept");

        // A run-time error, which nobody traps.
        const std::string content = Content(file.document());
        platform_.ExpectOpen(whole, [](const CFileDialog&) { throw CRuntimeError(ErrorNumber::DeviceError); });
        Expect(BoxKind::Critical, "Run-time error '57':\r\n\r\nDevice I/O error");
        Click(file.import);
        EXPECT_TRUE(form_->isEnabled() && Enabled(file.import));
        EXPECT_EQ(Content(file.document()), content);
    }
}

// The equipment of a merge: one letter an element, which tells where it comes from by its description.
void Fill(CArmyTables& tables, const std::string& accessories, const std::string& weapons, const std::string& origin) {
    for (const bool weapon : {false, true}) {
        for (const char letter : weapon ? weapons : accessories) {
            auto item = std::make_shared<CEqItem>();
            item->NewItem(weapon ? CEqItem::Weapon : CEqItem::Accessory);
            item->SetName(std::string(1, letter));
            item->SetDescr(origin);
            (weapon ? tables.ArmyWeapons() : tables.ArmyAccessories()).Add(item);
        }
    }
}

void Fill(CArmyList& list, const std::string& units, const std::string& /*none*/, const std::string& origin) {
    for (const char letter : units) {
        auto unit = std::make_shared<CGenUnit>();
        unit->NewUnit(CGenUnit::Single);
        unit->SetName(std::string(1, letter));
        unit->SetDescr(origin);
        list.ArmyUnits().Add(unit);
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
    void Ask(const std::vector<SQuestion>& questions, const std::string& where) {
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
    }
    template <class TDocument>
    std::string SourceFile(const std::string& first, const std::string& second) {
        TDocument source;
        Fill(source, first, second, "source");
        EXPECT_TRUE(source.WriteInfo(folder_ / "source"));
        return folder_ / "source";
    }
};

TEST_F(Merge, EquipmentFollowsOneDecisionForBothLists) {
    const std::string all = "Substitute all existing ";
    const std::string never = "Never substitute existing ";
    struct {
        std::string accessories, weapons;  // of the source; the document holds A, B, C and X, Y, Z
        std::vector<SQuestion> questions;
        std::string result;
    } const cases[] = {
        {"D", "W", {}, "A- B- C- D+ / W+ X- Y- Z- "},
        {"", "", {}, "A- B- C- / X- Y- Z- "},
        {"XYD", "A", {}, "A- B- C- D+ X+ Y+ / A+ X- Y- Z- "},  // the lists don't see each other
        {"ABD", "X", {{"A", Yes}, {all + "accessories", Yes}}, "A+ B+ C- D+ / X+ Y- Z- "},
        {"ABD", "XW", {{"A", No}, {never + "accessories", Yes}}, "A- B- C- D+ / W+ X- Y- Z- "},
        {"ABC",
         "XY",
         {{"A", Yes}, {all + "accessories", No}, {"B", No}, {"C", Yes}, {"X", Yes}, {"Y", No}},
         "A+ B- C+ / X+ Y- Z- "},
        {"AB", "X", {{"A", No}, {never + "accessories", No}, {"B", Yes}, {"X", No}}, "A- B+ C- / X- Y- Z- "},
        {"D", "XY", {{"X", Yes}, {all + "weapons", Yes}}, "A- B- C- D+ / X+ Y+ Z- "},
        {"D", "XY", {{"X", No}, {never + "weapons", No}, {"Y", No}}, "A- B- C- D+ / X- Y- Z- "},
        {"0AD", "W", {{"A", Cancel}}, "0+ A- B- C- / X- Y- Z- "},
        {"ABC", "W", {{"A", Yes}, {all + "accessories", No}, {"B", Cancel}}, "A+ B- C- / X- Y- Z- "},
        {"A", "VXY", {{"A", No}, {never + "accessories", No}, {"X", Cancel}}, "A- B- C- / V+ X- Y- Z- "},
    };
    Open();
    for (const auto& test : cases) {
        SCOPED_TRACE(test.accessories + "/" + test.weapons + ": " + test.result);
        MGlobal::ArmyTables().Clear();
        Fill(MGlobal::ArmyTables(), "ABC", "XYZ", "document");
        platform_.ExpectOpen(SourceFile<CArmyTables>(test.accessories, test.weapons));
        Ask(test.questions, "equipment file");
        Expect(BoxKind::Information, "Merge terminated");
        Click("cmdEqFileMerge");
        platform_.Verify();
        const CArmyTables& tables = MGlobal::ArmyTables();
        EXPECT_EQ(Origins(tables.ArmyAccessories()) + "/ " + Origins(tables.ArmyWeapons()), test.result);
        EXPECT_EQ(Modified(), "2");
        SetModified(false);
    }
}

TEST_F(Merge, ArmyListAsksInItsOwnWords) {
    const std::string all = "Substitute all existing units";
    const std::string never = "Never substitute existing units";
    struct {
        std::string units;  // of the source; the document holds a, b and a small e with an accent
        std::vector<SQuestion> questions;
        std::string result;
    } const cases[] = {
        {"D", {}, "a- b- D+ \xE9- "},
        {"AB\xC9", {{"A", Yes}, {all, Yes}}, "A+ B+ \xC9+ "},
        {"AB\xC9", {{"A", No}, {never, Yes}}, "a- b- \xE9- "},
        {"A\xC9", {{"A", Yes}, {all, No}, {"\xC3\x89", No}}, "A+ b- \xE9- "},
        {"AB", {{"A", No}, {never, No}, {"B", Yes}}, "a- B+ \xE9- "},
        {"0AD", {{"A", Cancel}}, "0+ a- b- \xE9- "},
    };
    Open();
    for (const auto& test : cases) {
        SCOPED_TRACE(test.result);
        MGlobal::ArmyList().Clear();
        Fill(MGlobal::ArmyList(), "ab\xE9", "", "document");
        platform_.ExpectOpen(SourceFile<CArmyList>(test.units, ""));
        Ask(test.questions, "army list");
        Expect(BoxKind::Information, "Merge terminated");
        Click("cmdArmyListMerge");
        platform_.Verify();
        EXPECT_EQ(Origins(std::as_const(MGlobal::ArmyList()).ArmyUnits()), test.result);
        EXPECT_EQ(Modified(), "0");
        SetModified(false);
    }
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
        platform_.ExpectOpen(folder_ / ("./a" + file.extension));
        Ask({{number == 0 ? "Plate" : "Guard", Cancel}}, number == 0 ? "equipment file" : "army list");
        Expect(BoxKind::Information, "Merge terminated");
        Click(file.merge);
        EXPECT_EQ(Content(file.document()), content);
        EXPECT_EQ(Modified(), std::to_string(file.index));

        // More elements are announced than there are; the first one is new.
        const std::string other = Changed(file.sample, number == 0 ? "NAME=Laser" : "NAME=Guard", "NAME=Fresh");
        platform_.ExpectOpen(Save("short", Changed(other, number == 0 ? "COUNT=1" : "COUNT=2", "COUNT=9")));
        Expect(BoxKind::Warning, file.readFailure);
        if (number == 1) Ask({{"Squad", No}, {"Never substitute existing units", No}}, "army list");
        Expect(BoxKind::Information, "Merge terminated");
        Click(file.merge);
        platform_.Verify();
        EXPECT_TRUE(Holds(Content(file.document()), "NAME=Fresh"));
        EXPECT_TRUE(Holds(Content(file.document()), file.sampleEntry));
        EXPECT_EQ(ReadBytes(file.path()), file.sample);
        SetModified(false);
    }
}

// Questions end in an error, as they would where no window can be made.
class CBrokenPlatform : public CScriptedPlatform {
  public:
    BoxAnswer ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) override {
        if (buttons == BoxButtons::YesNoCancel) throw CRuntimeError(ErrorNumber::OutOfMemory);
        return CScriptedPlatform::ShowBox(kind, buttons, text);
    }
};

TEST_F(Merge, ErrorHalfWayLosesNothingAndMarksTheDocument) {
    Open();
    Fill(MGlobal::ArmyList(), "abc", "", "document");
    CBrokenPlatform broken;
    broken.ExpectOpen(SourceFile<CArmyList>("0ABD", ""));
    broken.ExpectBox(BoxKind::Critical, BoxButtons::Ok, "Run-time error '7':\r\n\r\nOut of memory");
    Click("cmdArmyListMerge");
    EXPECT_EQ(Origins(std::as_const(MGlobal::ArmyList()).ArmyUnits()), "0+ a- b- c- ");
    EXPECT_EQ(Modified(), "0");
}

TEST_F(Merge, TakesTheObjectsThemselvesAndNeverDropsOneForNothing) {
    CArmyList list;
    CArmyList source;
    Fill(list, "AB", "", "document");
    source.ArmyUnits().SetIndexed(false);
    Fill(source, "NB", "", "source");
    const auto fresh = source.ArmyUnits().Share(2);
    EXPECT_EQ(fresh->Name(), "N");
    source.ArmyUnits().Item(1).SetKey("A");  // would make room for itself by A, but is called B
    Ask({{"B", Yes}, {"Substitute all existing units", Yes}}, "army list");
    MMerge::Merge(list, source);
    EXPECT_EQ(Origins(std::as_const(list).ArmyUnits()), "A- B- N+ ");
    EXPECT_EQ(&list.ArmyUnits().Item("n"), fresh.get());
    EXPECT_TRUE(list.ArmyUnits().Exists("a"));
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
         [] { MGlobal::ArmyTables().ArmyAccessories().Item("Plate").SetFullInfo(false); },
         "Errors occurred while recalculating costs on the following items:\r\nACCESSORY: Plate"},
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

        SetModified(true);
        ExpectQuestion(complete, Yes);
        Click(file.update);
        EXPECT_TRUE(Holds(ReadBytes(file.path()), test.after));
        EXPECT_EQ(Modified().find(std::to_string(file.index)), std::string::npos);
        SetModified(false);

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

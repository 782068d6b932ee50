#include "support/scripted_platform.h"

#include <array>
#include <utility>

#include "support/core_test.h"

namespace {

constexpr std::array kKinds = {"plain", "critical", "warning", "question", "information"};
constexpr std::array kButtons = {"OK", "OK, Cancel", "Yes, No", "Yes, No, Cancel"};

std::string BoxText(BoxKind kind, BoxButtons buttons, const std::string& text) {
    return kKinds.at(static_cast<std::size_t>(kind)) + std::string(" box [") +
           kButtons.at(static_cast<std::size_t>(buttons)) + "]: " + text;
}

// The answer that loses least, for a box that nobody expected.
BoxAnswer SafeAnswer(BoxButtons buttons) {
    if (buttons == BoxButtons::Ok) return BoxAnswer::Ok;
    return buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

}  // namespace

CScriptedPlatform::CScriptedPlatform() {
    ErrorOf([this] { former_ = &MPlatform::Current(); });  // none is installed where there are no windows
    MPlatform::Install(this);
}

CScriptedPlatform::~CScriptedPlatform() {
    Verify();
    MPlatform::Install(former_);
}

void CScriptedPlatform::ExpectBox(BoxKind kind, BoxButtons buttons, const std::string& text, BoxAnswer answer) {
    expected_.push_back({BoxText(kind, buttons, text), answer, false, {}, nullptr, nullptr});
}

void CScriptedPlatform::ExpectOpen(const std::string& fileName, std::function<void(const CFileDialog&)> look) {
    expected_.push_back({"open dialog", BoxAnswer::Ok, !fileName.empty(), fileName, std::move(look), nullptr});
}

void CScriptedPlatform::ExpectSave(const std::string& fileName, std::function<void(const CFileDialog&)> look) {
    expected_.push_back({"save dialog", BoxAnswer::Ok, !fileName.empty(), fileName, std::move(look), nullptr});
}

void CScriptedPlatform::ExpectPrint(bool accept, std::function<void(IPrintJob&)> print) {
    expected_.push_back({"print dialog", BoxAnswer::Ok, accept, {}, nullptr, std::move(print)});
}

void CScriptedPlatform::Verify() {
    for (const SExpected& missing : expected_)
        ADD_FAILURE() << "Never came: " << missing.what;
    expected_.clear();
}

bool CScriptedPlatform::Next(const std::string& what, SExpected& expected) {
    if (expected_.empty()) {
        ADD_FAILURE() << "Not expected: " << what;
        return false;
    }
    expected = expected_.front();
    if (expected.what != what) {
        ADD_FAILURE() << "Expected: " << expected.what << "\nCame: " << what;
        return false;
    }
    expected_.pop_front();
    return true;
}

BoxAnswer CScriptedPlatform::ShowBox(BoxKind kind, BoxButtons buttons, const std::string& text) {
    EXPECT_FALSE(Busy) << "The busy pointer stands over a box";
    SExpected expected;
    return Next(BoxText(kind, buttons, text), expected) ? expected.answer : SafeAnswer(buttons);
}

bool CScriptedPlatform::ShowFile(const std::string& what, CFileDialog& dialog) {
    SExpected expected;
    if (!Next(what, expected)) return false;
    if (expected.look) expected.look(dialog);
    if (expected.accept) dialog.FileName = expected.fileName;
    return expected.accept;
}

bool CScriptedPlatform::ShowPrint(IPrintJob& job) {
    SExpected expected;
    if (!Next("print dialog", expected)) return false;
    if (expected.accept && expected.print) expected.print(job);
    return expected.accept;
}

int CScriptedPlatform::ShellExecute(const std::string& verb, const std::string& file, const std::string& parameters,
                                    const std::string& folder, int showMode) {
    ShellExecutes.push_back({verb, file, parameters, folder, showMode});
    return 42;
}

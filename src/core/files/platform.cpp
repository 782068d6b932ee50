#include "core/files/platform.h"

#include "core/files/runtime_error.h"

namespace MPlatform {

namespace {
IPlatform* current = nullptr;
}

void Install(IPlatform* platform) {
    current = platform;
}

IPlatform& Current() {
    if (current == nullptr) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    return *current;
}

std::string InApplicationFolder(const std::string& name) {
    return Current().ApplicationFolder() + "/" + name;
}

void ShowPlain(const std::string& text) {
    Current().ShowBox(BoxKind::Plain, BoxButtons::Ok, text);
}

void ShowCritical(const std::string& text) {
    Current().ShowBox(BoxKind::Critical, BoxButtons::Ok, text);
}

void ShowWarning(const std::string& text) {
    Current().ShowBox(BoxKind::Warning, BoxButtons::Ok, text);
}

void ShowInformation(const std::string& text) {
    Current().ShowBox(BoxKind::Information, BoxButtons::Ok, text);
}

bool Ask(const std::string& text) {
    return Current().ShowBox(BoxKind::Question, BoxButtons::YesNo, text) == BoxAnswer::Yes;
}

}  // namespace MPlatform

#include "core/state/app.h"

#include <memory>

#include "core/files/profile.h"
#include "core/files/runtime_error.h"

namespace MApp {

namespace {

std::unique_ptr<CProfile>& Holder() {
    static std::unique_ptr<CProfile> profile;
    return profile;
}

}  // namespace

CProfile& Profile() {
    if (!Holder()) throw CRuntimeError(ErrorNumber::ObjectNotSet);
    return *Holder();
}

void CreateProfile() {
    Holder() = std::make_unique<CProfile>();
}

}  // namespace MApp

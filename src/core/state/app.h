#pragma once

class CProfile;

namespace MApp {

/// The settings file of the application. Error 91 before the start has made it.
CProfile& Profile();
void CreateProfile();

}  // namespace MApp

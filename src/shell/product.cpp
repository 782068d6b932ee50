#include "shell/product.h"

#include "core/files/platform.h"

std::string MProduct::VersionText() {
    const CAppVersion version = MPlatform::Current().Version();
    return "Version " + std::to_string(version.Major) + "." + std::to_string(version.Minor) + "." +
           std::to_string(version.Revision);
}

std::string MProduct::Notice() {
    std::string notice;
    for (const char* line : {
             "VdTools2 is a companion for players of Vandrel, the tabletop miniature wargame. With it you design "
             "weapons, equipment and units, form squads, write army lists and pick the roster that you take to the "
             "table. It works out every point cost and prints your pages.",
             "",
             "Your working files stay on your machine. The program sends nothing anywhere.",
             "",
             "VdTools2 is free software under the MIT licence: you may use, copy, change and pass it on, as long as "
             "the copyright notice and the licence go with it. It comes without warranty of any kind.",
         }) {
        if (!notice.empty()) notice += "\r\n";
        notice += line;
    }
    return notice;
}

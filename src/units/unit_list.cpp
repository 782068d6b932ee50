#include "units/unit_list.h"

bool CUnitList::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        std::int32_t count = 0;
        if (profile == nullptr || !ReadHeader(*profile, section, count)) return false;
        Clear();
        return ReadTag(*profile, section) && ReadElements(*profile, section, count);
    });
}

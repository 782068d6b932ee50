#include "equipment/eq_list.h"

bool CEqList::ReadInfo(CProfile* profile, const std::string& section) {
    return Trap([&] {
        if (profile == nullptr) return false;
        Clear();
        std::int32_t count = 0;
        return ReadTag(*profile, section) && ReadHeader(*profile, section, count) &&
               ReadElements(*profile, section, count);
    });
}

#pragma once

#include <string>

#include "core/files/keyed_list.h"
#include "equipment/eq_item.h"

/// The list of equipment that the equipment document holds twice and each unit holds for what it carries. A new one is
/// neither sorted nor indexed.
class CEqList : public CKeyedList<CEqItem> {
  public:
    CEqList() : CKeyedList("#EL", false) {}

    bool ReadInfo(CProfile* profile, const std::string& section);
};

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "roster/browser.h"

class CAccessory;
class CArmyList;
class CArmyRoster;
class CEqList;
class CGenUnit;
class CMultUnit;
class CUnit;
class CWeapon;

/// Turns the model into HTML pages and hands them to its browser child: an army roster, an army list, one unit or
/// squad, a list of weapons or of accessories. A page is streamed to a file row by row; there is one temporary page for
/// the whole application, beside the executable, and saving a page is copying that file.
///
/// A file number below 1 means that no page is open: the operation then makes one, finishes it and shows it. Files that
/// can't be written are run-time errors for the caller, which name the file.
class URoster2 {
  public:
    /// Works out the default page path and sends the browser child, which must outlive the control, to "about:blank".
    explicit URoster2(IBrowser& browser);

    /// 2 selects the parchment palette, every other value the dark one.
    std::int32_t Skin() const { return skin_; }
    void SetSkin(std::int32_t skin) { skin_ = skin; }
    /// The list against which summaries are resolved; null for none. Not owned.
    const CArmyList* ArmyList() const { return armyList_; }
    void SetArmyList(const CArmyList* list) { armyList_ = list; }
    const std::string& DefaultPagePath() const { return defaultPage_; }

    void ShowArmyRoster(const CArmyRoster& roster);
    void ShowArmyList(const CArmyList& list);
    void ShowUnit(const CGenUnit& unit, std::int16_t fileNumber = 0, bool showDescription = true);
    void ShowSingleUnit(const CUnit& unit, std::int16_t fileNumber = 0, bool showDescription = true);
    /// An error while a squad is written is boxed, and the page goes on without the rows that are missing.
    void ShowMultiUnit(const CMultUnit& squad, std::int16_t fileNumber = 0, bool showDescription = true);
    /// The flags of these four have no effect.
    void ShowSingleWeapon(const CWeapon& weapon, std::int16_t fileNumber, bool flag = false);
    void ShowWeaponList(const CEqList& list, std::int16_t fileNumber = 0, bool flag = true);
    void ShowSingleAccessory(const CAccessory& accessory, std::int16_t fileNumber, bool flag = false);
    void ShowAccessoryList(const CEqList& list, std::int16_t fileNumber = 0, bool flag = true);

    /// Starts a page at a path, by default the temporary one; gives its file number.
    std::int16_t NewRoster(const std::string& path = {});
    void CloseRoster(std::int16_t fileNumber);
    void ShowRosterFile(const std::string& path = {});
    void Refresh() { browser_.Refresh(); }
    void PrintRoster() { browser_.Print(); }

  private:
    class CPage;

    template <class TOperation>
    void WritePage(TOperation&& operation);
    void Write(std::int16_t fileNumber, std::string_view text);
    bool IsPageFull() const;
    void WriteSquad(const CMultUnit& squad, std::int16_t fileNumber, bool showDescription);
    std::string HtmlHead() const;

    IBrowser& browser_;
    std::string defaultPage_;
    std::string openPage_;  // the page begun last
    std::int32_t skin_ = 0;
    const CArmyList* armyList_ = nullptr;
    std::size_t pageSize_ = 0;
    // Squads being written, outermost first: one that holds itself by name must not be followed for ever.
    std::vector<const CMultUnit*> squadsInProgress_;
};

#pragma once

#include "tour/chapter.h"

/// Picks an army in the Army Composer and looks at it on the viewers' pages.
class CComposerChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void PickAnArmy();
    void ViewAUnit();
    void ViewAndSaveTheRoster();
    void MindThePicture();
    void LeaveTheComposer();
    void SeeTheOtherSkin();
    /// After the program has ended: what is on the disk.
    void CheckSavedRoster();
};

#pragma once

#include "tour/chapter.h"

/// Designs a weapon and an accessory, prices worked out by hand beside them. What it makes it takes out again: it
/// leaves the equipment as the program found it at the start, on the disk too, and not modified.
class CMakerChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void DesignAWeapon();
    void DesignAnAccessory();
    void SeeTheOtherSkin();

  private:
    void PriceAFlameThrower();
    void NameIt();
    void WalkAbout();
    void LookAtAGrenade();
    void WidenTheFlame();
    void SaveTheWeapon();
    void PriceACoat();
    void SaveTheCoat();
    /// Deletes the item that the form shows, declines to add it again, and closes the form.
    void TakeOutAgain(const QString& form, const QString& prompt, const QString& name, int left);
    void SaveAndLeave(const QString& form);
    void CheckUnchanged();
};

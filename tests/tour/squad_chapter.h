#pragma once

#include "tour/chapter.h"

/// Composes a squad, then changes the cost of a weapon in it and follows that through the army list and the roster to
/// the printed page.
class CSquadChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void SeeTheSampleSquads();
    void ComposeAPatrol();
    void SendItToTheArmy();
    void ChangeAWeapon();
    void UpdateTheList();
    void PrintTheRoster();

  private:
    void CheckTotal(QWidget& form, const QString& total);
};

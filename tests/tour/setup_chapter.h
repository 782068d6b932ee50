#pragma once

#include "tour/chapter.h"

/// The setup form and all that it does with the working files. It leaves the documents as the program found them at
/// the start, and none of them modified.
class CSetupChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void StartAnArmyList();
    void ImportTheFormerRelease();
    void MergeTwoArmies();
    void OpenTheWrongFiles();
    void SwitchTheSkin();

  private:
    void EnterSetup();
    void Press(const QString& step, const QString& button);
    /// Chooses one of the player's files in the open dialog behind a button.
    void Open(const QString& button, const QString& name);
    void OpenTheSampleArmy();
    void MissTheEquipment();
    void ImportFromTheBottomUp();
    void FindTheImportedRoster();
    void MergeEquipment();
    void MergeUnits();
    void SaveTheMerger();
    void MakeBorrowedFiles();
    void CheckSettings(const QString& army);
};

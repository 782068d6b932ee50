#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <utility>

#include "tour/guide.h"
#include "tour/tour_window.h"

/// The commands in the menu panel of a maker or composer.
namespace MMenu {
inline constexpr auto New = "cmdMenu(0)", AddToDb = "cmdMenu(1)", Modify = "cmdMenu(2)", ViewList = "cmdMenu(3)",
                      Delete = "cmdMenu(4)", SaveChanges = "cmdMenu(5)", UpdateCosts = AddToDb, ViewArmy = ViewList;
}

/// What the player does, from his first look at the console to his leave. All that the steps do goes into the guide's
/// script, and comes true only as that is played.
class CTour {
  public:
    /// `home` is the folder of the program on tour, `folder` takes the pictures and pages.
    CTour(CGuide& guide, QString home, QString folder)
        : guide_(guide), home_(std::move(home)), folder_(std::move(folder)) {}

    void Write();
    /// After the program has ended: what it has left on the disk.
    void CheckTheEnd();

  private:
    void LookAround(const QString& picture);
    void ReadAbout(const QString& picture);
    void Quit();

    // All that the setup does with the working files. In the end the sample army is in force, and unchanged.
    void StartAnArmyList();
    void ImportTheFormerRelease();
    void OpenTheSampleArmy();
    void MergeEquipment();
    void MergeUnitsAndSave();
    void OpenTheWrongFiles();
    void SwitchTheSkin();
    void Pick(const QString& button, const QString& title, const QString& name, const QString& answer,
              const QString& picture = {});
    void Open(const QString& button, const QString& name) { Pick(button, "Open", name, "Open"); }
    void Borrow(const QString& extension);
    void CheckSettings(const QString& army);

    // A weapon and an accessory, prices worked out by hand beside them. What the player makes here he takes out again.
    void DesignAWeapon();
    void ChangeTheWeaponAgain();
    void DesignAnAccessory();
    void SeeTheMakersInTheOtherSkin();
    void TakeOutAgain(const CTourWindow& maker, const QString& name);
    void LeaveAsInstalled(const CTourWindow& maker);

    // An officer, a vehicle with its crew and a robot that flies, prices worked out by hand beside each step.
    void DesignAnOfficer();
    void DesignAVehicle();
    void DesignARobotFlyer();
    void FindAndSaveTheUnits();
    void SeeTheUnitMakerInTheOtherSkin();

    // An army, and the viewers' pages of it.
    void PickAnArmy();
    void ViewAndSaveTheRoster();
    void MindThePicture();
    void SeeTheComposerInTheOtherSkin();

    // A squad, then a weapon in it that gets dearer: through the army list and the roster to the printed page.
    void SeeTheSampleSquads();
    void ComposeAPatrol();
    void ChangeAWeapon();
    void PrintTheRoster();

    void Tell(const QString& tale) { guide_.Tell(tale); }
    void Then(std::function<void()> look);
    /// From the console through a button that bears this tip.
    void Enter(const QString& button, const QString& tip);
    /// From a maker to one of the things in its list.
    void GoTo(const CTourWindow& maker, const QString& item);
    /// A message box that has to hold this text: a picture of it if that has a name, then the button.
    void Box(const QString& text, const QString& button, const QString& picture = {});
    void BoxToAdd(const QString& key, const QString& button = "Yes", const QString& picture = {});
    /// A file dialog that has to bear this title: types a name, without folder, and leaves by the button.
    void FileDialog(const QString& title, const QString& name, const QString& button, const QString& picture = {});

    /// What the documents in force hold: weapons, accessories, units, entries; which of them count as modified, and how
    /// much in them has been borrowed.
    void InMemory(const QList<int>& counts, const QString& modified = {}, int borrowed = 0);
    /// What the player's files of this name hold; -1 stands for a file that isn't there.
    void OnDisk(const QString& army, const QList<int>& counts);
    /// A file that holds this text so many times; -1 is any number but none.
    void Holds(const QString& path, const QByteArray& text, int times = -1);
    void Equal(const QString& path, const QString& expected);
    /// A file of the sample army, as it was installed.
    void AsInstalled(const QString& name) { Equal(DataFile(name), QString(TOUR_SAMPLE "/") + name); }
    static QByteArray Content(const QString& path);
    /// Path of a file among the player's own.
    QString DataFile(const QString& name) const { return home_ + "/Data/" + name; }
    QString PageFile() const { return home_ + "/tmproster.html"; }

    CGuide& guide_;
    QString home_;
    QString folder_;
    CTourWindow console_{guide_, "FConsole"}, setup_{guide_, "FSetup"}, about_{guide_, "FAbout"};
    CTourWindow weaponMaker_{guide_, "FWeaponMaker"}, accessoryMaker_{guide_, "FAccessoryMaker"};
    CTourWindow unitMaker_{guide_, "FUnitMaker"}, specials_{guide_, "FUnitSpecialProps"};
    CTourWindow selector_{guide_, "FSelector"}, squadComposer_{guide_, "FSquadComposer"};
    CTourWindow armyList_{guide_, "FArmyList"}, armyComposer_{guide_, "FArmyComposer"};
    CTourWindow unitViewer_{guide_, "FUnitViewer"}, pageViewer_{guide_, "FArmyRoster"};
    CTourWindow box_{guide_, "QMessageBox"}, fileDialog_{guide_, "QFileDialog"}, printDialog_{guide_, "QPrintDialog"};
};

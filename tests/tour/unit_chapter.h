#pragma once

#include "tour/chapter.h"

/// Designs an officer, a vehicle with its crew and a robot that flies, prices worked out by hand beside each step, and
/// leaves them in the army list, on the disk too.
class CUnitChapter : public CChapter {
  public:
    using CChapter::CChapter;

    void DesignAnOfficer();
    void DesignAVehicle();
    void DesignARobotFlyer();
    void WalkAndSave();
    void SeeTheOtherSkin();

  private:
    void TypeStat(QWidget& maker, int stat, const QString& value, const QString& cost);
    void Equip(QWidget& maker, int filter, const QString& item, const QString& cost);
    void CheckCost(QWidget& form, const QString& cost, const QString& what);
    void CheckProperties(QWidget& maker, const QString& text);
};

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "controls/color_button.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/text_edit.h"
#include "shell/look/gui_handler.h"
#include "units/unit.h"

/// Flying, what infantry can be besides, and the crew places of everything else, with the cost in sight. Works on a
/// copy of the unit: Cancel costs nothing.
class FUnitSpecialProps : public CForm {
  public:
    FUnitSpecialProps();

    /// Shows a copy of the unit modally.
    void ShowUnit(const CUnit& source);
    /// True when the user confirmed; then `Unit` is the one to take.
    bool OK() const { return ok_; }
    const std::shared_ptr<CUnit>& Unit() const { return unit_; }
    void SetUnit(std::shared_ptr<CUnit> unit) { unit_ = std::move(unit); }

  protected:
    void Form_Load() override;
    void Form_Unload() override { GuiHandler.reset(); }
    void MouseMove(IControl* control) override;
    void CloseRequest() override { cmdCancel_Click(); }

  private:
    struct SFlag;
    struct SLevel;
    static const std::array<SFlag, 4> Flags;
    static const std::array<SLevel, 2> Levels;

    void LayOut();
    void FillControls();
    void SetStates();
    bool Validate() const;
    void Edit(const std::function<void()>& change);
    void FlagChanged(const SFlag& flag);
    void LevelChanged(const SLevel& level);
    void tedCrewNumber_Change(int index);
    void cmdOK_Click();
    void cmdCancel_Click();
    std::string_view TipOf(const IControl* control) const;

    bool ok_ = false;
    bool busy_ = false;  ///< the form fills its controls, whose changes then count for nothing
    std::shared_ptr<CUnit> unit_;
    std::unique_ptr<CVDGuiHandler> GuiHandler;

    QXFrame frmGeneral{this, "frmGeneral"};
    QXColorButton chkFlying{this, "chkFlying"};
    QXFrame frmInfantry{this, "frmInfantry"};
    QXLabel lblOfficerBonus{this, "lblOfficerBonus"};
    QXTextEdit tedOfficerBonus{this, "tedOfficerBonus"};
    QXLabel lblHeroicSave{this, "lblHeroicSave"};
    QXTextEdit tedHeroicSave{this, "tedHeroicSave"};
    QXColorButton chkMedic{this, "chkMedic"};
    QXColorButton chkSharpShooter{this, "chkSharpShooter"};
    QXColorButton chkFerocious{this, "chkFerocious"};
    QXFrame frmCrew{this, "frmCrew"};
    CControlArray<QXLabel, CUnit::CrewPlaceCount> lblCrewMembers{this, "lblCrewMembers"};
    CControlArray<QXTextEdit, CUnit::CrewPlaceCount> tedCrewNumber{this, "tedCrewNumber"};
    QXFrame frmPointCost{this, "frmPointCost"};
    QXTextEdit tedPointCost{this, "tedPointCost"};
    QXLabel lblTip{this, "lblTip"};
    QXColorButton cmdOK{this, "cmdOK"};
    QXColorButton cmdCancel{this, "cmdCancel"};
};

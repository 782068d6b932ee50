#pragma once

#include <QFrame>
#include <cstdint>
#include <string>

#include "controls/control.h"
#include "roster/roster2.h"
#include "roster/viewers/page_browser.h"
#include "units/army_list.h"

/// The control in which pages are made and shown. Its browser child fills it.
class CRosterView : public CControl<QFrame> {
    Q_OBJECT
    // What a form stores of the control.
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(const CArmyList* ArmyList READ ArmyList WRITE SetArmyList)
    Q_PROPERTY(qint32 Skin READ Skin WRITE SetSkin)
  public:
    CRosterView(CForm* form, const char* name, std::optional<int> index = std::nullopt);

    /// The pages themselves.
    URoster2& Pages() { return pages_; }

    std::int32_t Skin() const { return pages_.Skin(); }
    void SetSkin(std::int32_t skin) { pages_.SetSkin(skin); }
    const CArmyList* ArmyList() const { return pages_.ArmyList(); }
    void SetArmyList(const CArmyList* list) { pages_.SetArmyList(list); }
    /// Stored and reported only.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    /// 0 without, any other value with a border of the control's frame.
    std::int16_t BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(std::int16_t style);

    /// Kept on the interface without behaviour; both give false.
    bool LoadFile(const std::string& name, std::int32_t further);
    bool SaveFile(const std::string& name, std::int32_t further);

  protected:
    void LookChanged() override {}
    void resizeEvent(QResizeEvent* event) override;

  private:
    CPageBrowser webRoster{this};
    URoster2 pages_{webRoster};
    bool enabled_ = true;
    std::int16_t borderStyle_ = 0;
};

#include "makers/selector.h"

#include "controls/layout.h"
#include "core/files/ansi_text.h"
#include "core/files/platform.h"
#include "core/state/global.h"
#include "equipment/eq_list.h"
#include "units/unit_list.h"

FSelector::FSelector() : CForm("FSelector") {
    SetCaption("Database Selection");
    SetPrompt("Select an item from the list:");
    SetOKCaption("OK");
    SetCancelCaption("Cancel");
    lstItems.SetSorted(true);
    lstItems.SetLabel(lblPrompt);

    lstItems.OnClick([this] { lstItems_Click(); });
    lstItems.OnDblClick([this] { lstItems_DblClick(); });
    lstItems.OnEnter([this] { lstItems_DblClick(); });
    cmdOK.OnClick([this] { cmdOK_Click(); });
    cmdCancel.OnClick([this] { cmdCancel_Click(); });

    auto* buttons = MLayout::Row();
    buttons->addWidget(&cmdOK, 1);
    buttons->addWidget(&cmdCancel, 1);
    auto* form = MLayout::WithFormMargins(MLayout::Column(this));
    form->addWidget(&lblPrompt);
    form->addWidget(&lstItems, 1);
    form->addLayout(buttons);
    resize(460, 520);
}

void FSelector::Form_Load() {
    GuiHandler = std::make_unique<CVDGuiHandler>();
    GuiHandler->SetSkin(*this, MGlobal::SkinId());
}

bool FSelector::ShowEqList(const CEqList& list) {
    return Show([&] {
        for (const CEqItem& item : list)
            lstItems.AddItem(item.Name());
    });
}

bool FSelector::ShowUnitList(const CUnitList& list, std::int32_t unitClass) {
    return Show([&] {
        for (const CGenUnit& entry : list) {
            if (unitClass == 0 || entry.GenUnitClass() == unitClass) lstItems.AddItem(entry.Name());
        }
    });
}

bool FSelector::Show(const std::function<void()>& fill) {
    const bool shown = Trap([&] {
        lstItems.Clear();
        fill();
        ok_ = false;  // not before: where the list fails, the answer stands as it is
        selection_.clear();
        UpdateOKButton();
        ShowModal();
        return true;
    });
    if (!shown) {
        MPlatform::ShowCritical(std::to_string(MLastError::Number()) + " : " +
                                MAnsiText::ToUtf8(MLastError::Description()));
    }
    return ok_;
}

void FSelector::lstItems_Click() {
    selection_ = lstItems.Text();
    UpdateOKButton();
}

void FSelector::lstItems_DblClick() {
    selection_ = lstItems.Text();
    cmdOK_Click();
}

void FSelector::cmdOK_Click() {
    if (selection_.empty()) {
        MPlatform::ShowWarning("No item selected!");
        return;
    }
    ok_ = true;
    Hide();
}

void FSelector::cmdCancel_Click() {
    ok_ = false;
    Hide();
}

#include "roster/viewers/roster_view.h"

CRosterView::CRosterView(CForm* form, const char* name, std::optional<int> index) : CControl(form, name, index) {
    webRoster.setObjectName(QStringLiteral("webRoster"));
    setFocusProxy(&webRoster);
    SetBorderStyle(0);
}

void CRosterView::SetBorderStyle(std::int16_t style) {
    borderStyle_ = style;
    setFrameShape(style == 0 ? QFrame::NoFrame : QFrame::Box);
    webRoster.setGeometry(contentsRect());
}

bool CRosterView::LoadFile(const std::string& /*name*/, std::int32_t /*further*/) {
    return false;
}

bool CRosterView::SaveFile(const std::string& /*name*/, std::int32_t /*further*/) {
    return false;
}

void CRosterView::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    webRoster.setGeometry(contentsRect());
}

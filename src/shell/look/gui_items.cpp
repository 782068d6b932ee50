#include "shell/look/gui_items.h"

#include "core/files/runtime_error.h"

namespace {

template <std::size_t Count>
PicturePtr Get(std::array<PicturePtr, Count>& store, int index, const char* name) {
    if (index < 0 || index >= static_cast<int>(Count)) throw CRuntimeError(ErrorNumber::SubscriptOutOfRange);
    PicturePtr& picture = store[static_cast<std::size_t>(index)];
    if (!picture) picture = CPicture::FromResource(QString::fromLatin1(name).arg(index));
    return picture;
}

}  // namespace

FGUIItems::FGUIItems() : CForm("FGUIItems") {}

PicturePtr FGUIItems::imgGUI(int index) {
    return Get(gui_, index, ":/gui_%1.svg");
}

PicturePtr FGUIItems::lstUnit(int index) {
    return Get(units_, index, ":/unit_%1.svg");
}

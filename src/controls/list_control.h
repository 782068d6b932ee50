#pragma once

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <functional>
#include <utility>

#include "controls/control.h"
#include "controls/painting.h"
#include "controls/row_delegate.h"
#include "core/files/runtime_error.h"

/// What the lists have in common, over the toolkit's list or tree: at most one row is selected, the user chooses it by
/// mouse or keys, and rows are painted in the list's own colours.
template <class Base>
class CListControl : public CControl<Base> {
  public:
    bool NamedByLabel() const override { return true; }

    int ListCount() const { return this->model()->rowCount(); }
    /// The selected row or -1. Setting it raises no click.
    int ListIndex() const {
        const QModelIndexList cells = this->selectionModel()->selectedIndexes();
        return cells.isEmpty() ? -1 : cells.first().row();
    }
    void SetListIndex(int index) {
        if (index < -1 || index >= ListCount()) throw CRuntimeError(ErrorNumber::InvalidCall);
        const QModelIndex row = this->model()->index(index, this->model()->columnCount() - 1);
        this->selectionModel()->setCurrentIndex(
            row, row.isValid() ? kSelect : QItemSelectionModel::SelectionFlags(QItemSelectionModel::Clear));
    }

    /// Brings a row into sight; an index outside changes nothing.
    void ShowRow(int index) { this->scrollTo(this->model()->index(index, 0)); }

    /// Whether the selected row has one above it, or below.
    bool CanMoveUp() const { return ListIndex() >= 1; }
    bool CanMoveDown() const { return ListIndex() >= 0 && ListIndex() < ListCount() - 1; }

    Colour SelectedColor() const { return selectedColor_; }
    void SetSelectedColor(Colour colour) { this->Change(selectedColor_, colour); }
    Colour SelectedForeColor() const { return selectedForeColor_; }
    void SetSelectedForeColor(Colour colour) { this->Change(selectedForeColor_, colour); }

    /// The user chose a row, by mouse or keys; choosing the selected row again counts.
    void OnClick(std::function<void()> handler) { click_ = std::move(handler); }
    void OnDblClick(std::function<void()> handler) { doubleClick_ = std::move(handler); }
    /// The Enter key, with a row selected.
    void OnEnter(std::function<void()> handler) { enter_ = std::move(handler); }

  protected:
    static constexpr int kRowHeight = 25;

    CListControl(CForm* form, const char* name, std::optional<int> index) : CControl<Base>(form, name, index) {
        this->setSelectionMode(QAbstractItemView::SingleSelection);
        this->setFrameStyle(QFrame::Box | QFrame::Plain);  // room for the border that tells the focus
        this->setLineWidth(kBorderWidth);
        this->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        this->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        this->setFocusPolicy(Qt::StrongFocus);
        this->setTabKeyNavigation(false);
        LookChanged();
    }

    /// At its smallest a list shows this many rows.
    QSize SmallestSize(int width) const {
        constexpr int kRows = 5;
        const int row = this->itemDelegate()->sizeHint(QStyleOptionViewItem(), QModelIndex()).height();
        return QSize(width, kRows * row + 2 * this->frameWidth());
    }

    /// Colours of a selected row, and of any other that has none of its own.
    SInk RowColours(bool selected) const {
        if (selected) return {ToQColor(selectedForeColor_), ToQColor(selectedColor_)};
        return {this->palette().color(QPalette::Text), this->palette().color(QPalette::Base)};
    }

    void LookChanged() override {
        this->setFont(this->LookFont());
        this->setPalette(MPainting::FieldPalette(this->Back(), this->Fore(), ToQColor(this->Form().BackColor())));
        this->updateGeometry();
        this->update();
        this->viewport()->update();
    }

    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* /*event*/) const override {
        return index.isValid() ? kSelect : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int before = ListIndex();
        const int key = event->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // The one that ends the editing of a row comes here too.
            const bool editing = this->state() == QAbstractItemView::EditingState;
            if (before >= 0 && !editing && !event->isAutoRepeat()) this->RaiseByUser(enter_);
            event->accept();
            return;
        }
        // Without a selection the toolkit would go on from a row of its own, which can't be seen, and skip the first.
        const bool goesOn = key == Qt::Key_Space || key == Qt::Key_End || key == Qt::Key_PageDown;
        if (before < 0 && !goesOn) {
            this->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
        }
        Base::keyPressEvent(event);
        const int now = ListIndex();
        if (now >= 0 && (now != before || key == Qt::Key_Space)) this->RaiseByUser(click_);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        pressed_ = true;
        chosenBefore_ = RowAt(event) < 0 ? ListIndex() : -1;
        Base::mousePressEvent(event);
    }

    // A press on the empty part chooses nothing, unless the mouse is then drawn onto a row.
    void mouseReleaseEvent(QMouseEvent* event) override {
        Base::mouseReleaseEvent(event);
        if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
        const int now = ListIndex();
        if (now >= 0 && now != chosenBefore_) this->RaiseByUser(click_);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        const int row = RowAt(event);
        if (row < 0 || row != ListIndex()) {  // two clicks on different rows are two clicks
            mousePressEvent(event);
            return;
        }
        pressed_ = false;
        RaiseDoubleClick();
    }
    void RaiseDoubleClick() { this->RaiseByUser(doubleClick_); }

    // A list that gets lower keeps the selected row in sight.
    void resizeEvent(QResizeEvent* event) override {
        const QModelIndex row = this->model()->index(ListIndex(), 0);
        const bool inSight = row.isValid() && QRect(QPoint(), event->oldSize()).intersects(this->visualRect(row));
        Base::resizeEvent(event);
        if (inSight) this->scrollTo(row);
    }

    void paintEvent(QPaintEvent* event) override {
        {
            QPainter painter(this->viewport());
            painter.fillRect(this->viewport()->rect(), this->palette().color(QPalette::Base));
        }
        Base::paintEvent(event);
    }

    // The border stands around the viewport, not in it: scrolling copies what is painted there.
    bool event(QEvent* event) override {
        if (event->type() != QEvent::Paint) return Base::event(event);
        QPainter painter(this);
        painter.fillRect(this->rect(), this->palette().color(QPalette::Base));
        if (this->hasFocus()) {
            MPainting::DrawBorder(painter, this->rect(), Mix(this->Fore(), this->Back(), 0.25), kBorderWidth);
        }
        return true;
    }

    void changeEvent(QEvent* event) override {
        Base::changeEvent(event);
        if (event->type() == QEvent::EnabledChange) this->viewport()->update();
    }

  private:
    static constexpr int kBorderWidth = 1;
    static constexpr QItemSelectionModel::SelectionFlags kSelect =
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;

    int RowAt(const QMouseEvent* event) const { return this->indexAt(event->position().toPoint()).row(); }

    std::function<void()> click_;
    std::function<void()> doubleClick_;
    std::function<void()> enter_;
    bool pressed_ = false;
    int chosenBefore_ = -1;
    Colour selectedColor_ = 0x800000;
    Colour selectedForeColor_ = 0xffffff;
};

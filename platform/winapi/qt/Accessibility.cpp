// What a screen reader learns of the two widgets of ours; the toolkit speaks for its own line edit. A button can be
// pressed, a list tells its rows and which one is selected. Not here: selecting a row from outside.
#include "platform/winapi/Accessibility.h"

#include "platform/winapi/qt/Accessibility.h"
#include "platform/winapi/qt/ButtonControl.h"
#include "platform/winapi/qt/ListBoxControl.h"

#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QApplication>

#include <map>

namespace ovrin::layer {

namespace {

// The toolkit judges by its own focus policy, which these widgets don't use.
QAccessible::State Focusable(QAccessible::State state) {
    state.focusable = true;
    return state;
}

class AccessibleButton : public QAccessibleWidget {
public:
    explicit AccessibleButton(ButtonControl &button)
        : QAccessibleWidget(&button, QAccessible::Button), button_(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString name = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && name.isEmpty() ? button_.Text() : name;
    }
    [[nodiscard]] QAccessible::State state() const override { return Focusable(QAccessibleWidget::state()); }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &action) override {
        // Under a message box the window takes no input, a screen reader's neither.
        const bool takesInput =
            button_.isEnabled() && button_.isVisible() && QApplication::activeModalWidget() == nullptr;
        if (action == pressAction() && takesInput) {
            button_.Click();
        }
    }

private:
    ButtonControl &button_;
};

class AccessibleRow : public QAccessibleInterface {
public:
    AccessibleRow(ListBoxControl &list, int row) : list_(list), row_(row) {}

    [[nodiscard]] bool isValid() const override { return row_ < list_.RowTexts().size(); }
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *parent() const override {
        return QAccessible::queryAccessibleInterface(&list_);
    }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? list_.RowTexts().value(row_) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        const QRect box = list_.RowRect(row_);
        return {list_.mapToGlobal(box.topLeft()), box.size()};
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.selected = row_ == list_.SelectedRow();
        state.focused = state.selected && list_.hasFocus();
        return state;
    }

private:
    ListBoxControl &list_;
    int row_;
};

class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(ListBoxControl &list) : QAccessibleWidget(&list, QAccessible::List), list_(list) {}
    AccessibleList(const AccessibleList &) = delete;
    AccessibleList &operator=(const AccessibleList &) = delete;
    ~AccessibleList() override {
        for (const auto &[row, id] : rows_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    [[nodiscard]] QAccessible::State state() const override { return Focusable(QAccessibleWidget::state()); }
    [[nodiscard]] int childCount() const override { return static_cast<int>(list_.RowTexts().size()); }
    [[nodiscard]] QAccessibleInterface *child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        const auto known = rows_.find(index);
        if (known != rows_.end()) {
            return QAccessible::accessibleInterface(known->second);
        }
        auto *row = new AccessibleRow(list_, index); // belongs to the toolkit's cache from here on
        rows_[index] = QAccessible::registerAccessibleInterface(row);
        return row;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override {
        for (const auto &[row, id] : rows_) {
            if (QAccessible::accessibleInterface(id) == child) {
                return row;
            }
        }
        return -1;
    }

private:
    ListBoxControl &list_;
    mutable std::map<int, QAccessible::Id> rows_; // those that have been asked for
};

QAccessibleInterface *MakeInterface(const QString & /*className*/, QObject *object) {
    if (auto *button = dynamic_cast<ButtonControl *>(object)) {
        return new AccessibleButton(*button);
    }
    if (auto *list = dynamic_cast<ListBoxControl *>(object)) {
        return new AccessibleList(*list);
    }
    return nullptr;
}

} // namespace

void InstallAccessibility() {
    static const bool once = (QAccessible::installFactory(MakeInterface), true);
    static_cast<void>(once);
}

} // namespace ovrin::layer

void SetAccessibleNames(const std::vector<AccessibleName> &names) {
    for (const auto &[window, name] : names) {
        if (auto *host = ovrin::layer::HostOf(window)) {
            host->Widget().setAccessibleName(QString::fromUtf16(name));
        }
    }
}

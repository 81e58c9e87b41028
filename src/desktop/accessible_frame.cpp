#include "desktop/accessible_frame.hpp"

#include "desktop/main_window.hpp"
#include "desktop/save_bar_view.hpp"

#include <QAccessible>
#include <QAccessibleWidget>

namespace pelrath::desktop {

namespace {

QAccessibleInterface* frameOf(const QString& className, QObject* object) {
    auto* window = dynamic_cast<MainWindow*>(object);
    if (window != nullptr) return new QAccessibleWidget{window, QAccessible::Window};
    auto* bar = dynamic_cast<SaveBarView*>(object);
    if (bar != nullptr) return new QAccessibleWidget{bar, QAccessible::AlertMessage};
    auto* part = className == "QFrame" ? qobject_cast<QWidget*>(object) : nullptr;
    return part == nullptr ? nullptr : new QAccessibleWidget{part, QAccessible::Grouping};
}

} // namespace

void tellWindowsApart() { QAccessible::installFactory(frameOf); }

} // namespace pelrath::desktop

#include "desktop/viewport_look.hpp"

#include "desktop/dragged_picture.hpp"
#include "desktop/units.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace pelrath::desktop {

namespace {

// Characters are what is typed, wherever their keys are.
bool isKeyOf(const LookEntry& entry, const QKeyEvent& event) {
    const QString key = QString::fromLatin1(entry.key);
    if (key.size() == 1) {
        const bool commanding =
            event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
        return !commanding && (event.text().compare(key, Qt::CaseInsensitive) == 0 ||
                               (key == "+" && event.text() == "=")); // the same key without Shift
    }
    const int pressed = event.key() | static_cast<int>((event.modifiers() & ~Qt::KeypadModifier).toInt());
    return QKeySequence{key, QKeySequence::PortableText} == QKeySequence{pressed};
}

const LookEntry* entryOf(const QKeyEvent& event) {
    const auto entries = lookEntries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const LookEntry& entry) { return isKeyOf(entry, event); });
    return found == entries.end() ? nullptr : &*found;
}

QImage imageOf(const LevelPicture& picture) {
    return QImage{reinterpret_cast<const uchar*>(picture.texels.data()), picture.width, picture.height,
                  picture.width * 4, QImage::Format_RGBA8888}
        .copy();
}

// Whole steps; what is left of one stays for the next time.
int wholeSteps(double& gathered) {
    const double whole = std::trunc(gathered);
    gathered -= whole;
    return static_cast<int>(whole);
}

} // namespace

ViewportLook::ViewportLook(ViewportWidget& viewport, TextureLook& look, Refresh& refresh)
    : QObject(&viewport), viewport_(viewport), look_(look), refresh_(refresh) {
    viewport.setFocusPolicy(Qt::StrongFocus);
    viewport.setMouseTracking(true);
    viewport.installEventFilter(this);
}

Point ViewportLook::pixels(const QPointF& place) const {
    const double unit = viewport_.devicePixelRatioF();
    return {place.x() * unit, place.y() * unit};
}

bool ViewportLook::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        dragged_.reset();
        return false;
    case QEvent::MouseButtonDblClick:
        perform(LookCommand::Fit);
        return true;
    case QEvent::Wheel:
        return turnWheel(static_cast<QWheelEvent&>(*event));
    case QEvent::NativeGesture:
        return gesture(static_cast<QNativeGestureEvent&>(*event));
    case QEvent::KeyPress:
        return pressKey(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        return releaseKey(static_cast<QKeyEvent&>(*event));
    case QEvent::FocusOut:
        letGo();
        dragged_.reset(); // the button is let go elsewhere, as in a menu
        return false;
    case QEvent::ContextMenu:
        showMenu(static_cast<QContextMenuEvent&>(*event));
        return true;
    default:
        return false;
    }
}

void ViewportLook::perform(LookCommand command) {
    if (command == LookCommand::Copy) {
        copy();
    } else {
        refresh_.act(viewport_, [this, command] { look_.perform(command); });
    }
}

bool ViewportLook::press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return false;
    dragged_ = event.position();
    carried_ = event.modifiers().testFlag(Qt::ControlModifier);
    return false;
}

bool ViewportLook::leaves(const QMouseEvent& event) const {
    const QPointF way = event.position() - *dragged_;
    if (carried_) return way.manhattanLength() >= QApplication::startDragDistance();
    const QWidget& window = *viewport_.window();
    return !window.rect().contains(window.mapFromGlobal(event.globalPosition().toPoint()));
}

bool ViewportLook::move(const QMouseEvent& event) {
    const Point now = pixels(event.position());
    if (dragged_ && leaves(event)) {
        dragged_.reset();
        dragOut();
        return true;
    }
    refresh_.act(viewport_, [&] {
        if (dragged_ && !carried_) {
            const Point before = pixels(*dragged_);
            look_.panBy(std::round(now.x) - std::round(before.x), std::round(now.y) - std::round(before.y));
        }
        look_.pointAt(now);
    });
    if (dragged_ && !carried_) dragged_ = event.position();
    return true;
}

// A touchpad moves the picture, as it scrolls elsewhere; a wheel zooms, and so does either with Ctrl.
bool ViewportLook::turnWheel(const QWheelEvent& event) {
    const Point about = pixels(event.position());
    const bool zooming = event.modifiers().testFlag(Qt::ControlModifier);
    // Not every system tells its touchpads from mice, but wheels know no pixels.
    const bool touchpad =
        event.device()->type() == QInputDevice::DeviceType::TouchPad || !event.pixelDelta().isNull();
    if (!zooming && touchpad) {
        const QPoint by = event.pixelDelta().isNull() ? event.angleDelta() / 2 : event.pixelDelta();
        const Point wanted = pixels(by);
        refresh_.act(viewport_, [&] { look_.panBy(wanted.x, wanted.y); });
        return true;
    }
    turned_ += event.angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
    if (const int steps = wholeSteps(turned_); steps != 0) {
        refresh_.act(viewport_, [&] { look_.zoomBy(steps, about); });
    }
    return true;
}

bool ViewportLook::gesture(const QNativeGestureEvent& event) {
    if (event.gestureType() == Qt::BeginNativeGesture) pinched_ = 0;
    if (event.gestureType() != Qt::ZoomNativeGesture) return false;
    pinched_ += 2 * std::log2(std::max(1 + event.value(), 0.1)); // two steps to a power of two
    if (const int steps = wholeSteps(pinched_); steps != 0) {
        refresh_.act(viewport_, [&, about = pixels(event.position())] { look_.zoomBy(steps, about); });
    }
    return true;
}

bool ViewportLook::pressKey(const QKeyEvent& event) {
    const LookEntry* entry = entryOf(event);
    if (entry == nullptr) return false;
    if (entry->held) {
        if (event.isAutoRepeat() || holding_ || look_.isChecked(entry->command) == true) return true;
        holding_ = true;
    }
    perform(entry->command);
    return true;
}

bool ViewportLook::releaseKey(const QKeyEvent& event) {
    const LookEntry* entry = entryOf(event);
    if (entry == nullptr || !entry->held || event.isAutoRepeat()) return false;
    letGo();
    return true;
}

void ViewportLook::letGo() {
    if (!std::exchange(holding_, false)) return;
    const auto end = [this] {
        for (const LookEntry& entry : lookEntries()) {
            if (entry.held && look_.isChecked(entry.command) == true) look_.perform(entry.command);
        }
    };
    // Another key may have opened a dialog meanwhile: there is no second chance to end it.
    if (!refresh_.act(viewport_, end))
        refresh_.gate().whenQuiet(*this, [this, end] { refresh_.deliver(end); });
}

void ViewportLook::showMenu(const QContextMenuEvent& event) {
    auto* menu = new QMenu{&viewport_};
    menu->setObjectName("viewportMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fill(*menu);
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport_.mapToGlobal(viewport_.rect().center()) : event.globalPos());
}

void ViewportLook::fill(QMenu& menu) {
    QMenu* inner = nullptr;
    for (const LookEntry& entry : lookEntries()) {
        if (entry.menu == nullptr) {
            inner = nullptr;
        } else if (inner == nullptr || inner->title() != entry.menu) {
            inner = menu.addMenu(entry.menu);
        }
        if (entry.startsGroup) menu.addSeparator();
        const QString key =
            QKeySequence{entry.key, QKeySequence::PortableText}.toString(QKeySequence::NativeText);
        QAction* action =
            (inner == nullptr ? &menu : inner)
                ->addAction(QString{entry.caption} + '\t' + key + (entry.held ? " (hold)" : ""));
        action->setEnabled(look_.isEnabled(entry.command));
        const auto checked = look_.isChecked(entry.command);
        action->setCheckable(checked.has_value());
        action->setChecked(checked == true);
        connect(action, &QAction::triggered, this, [this, command = entry.command] { perform(command); });
    }
}

std::optional<NamedPicture> ViewportLook::picture() {
    std::optional<NamedPicture> taken;
    refresh_.act(viewport_, [&] { taken = look_.picture(); });
    return taken;
}

void ViewportLook::copy() {
    if (const auto taken = picture()) QApplication::clipboard()->setImage(imageOf(taken->picture));
}

void ViewportLook::dragOut() {
    const auto taken = picture();
    if (!taken) return;
    auto* drag = new QDrag{&viewport_}; // the toolkit deletes it
    const QImage image = imageOf(taken->picture);
    drag->setMimeData(new DraggedPicture{image, toQString(taken->name), folder_});
    drag->setPixmap(QPixmap::fromImage(image.scaled(64, 64, Qt::KeepAspectRatio)));
    drag->exec(Qt::CopyAction);
}

} // namespace pelrath::desktop

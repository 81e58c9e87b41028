#include "desktop/inspection_pictures.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace pelrath::desktop {

namespace {

using inspection::Panels;

constexpr int chequer = 8; // pixels

QBrush chequeredGround() {
    QPixmap tile{2 * chequer, 2 * chequer};
    tile.fill(QColor{160, 160, 160});
    QPainter painter{&tile};
    painter.fillRect(0, 0, chequer, chequer, QColor{96, 96, 96});
    painter.fillRect(chequer, chequer, chequer, chequer, QColor{96, 96, 96});
    return {tile};
}

} // namespace

InspectionPictures::InspectionPictures(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void InspectionPictures::showOf(inspection::Inspection& model, Refresh& refresh) {
    model_ = &model;
    refresh_ = &refresh;
    connections_.push_back(model.pictureChanged.connect([this] { takePictures(); }));
    connections_.push_back(model.lookChanged.connect([this] { update(); }));
}

// At once: the texels that were shown are gone.
void InspectionPictures::takePictures() {
    for (std::size_t panel = 0; panel < Panels; ++panel) {
        pictures_.at(panel).clear();
        if (!model_->shown()) continue;
        const LevelPicture& picture = model_->shown()->at(panel);
        const bool alpha = panel != inspection::Difference; // a difference has another use for it
        pictures_.at(panel).emplace_back(reinterpret_cast<const uchar*>(picture.texels.data()), picture.width,
                                         picture.height, picture.width * 4,
                                         alpha ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888);
    }
    update();
}

// The smallest that is at least as large as what is drawn: that is smoothed without leaving texels out.
const QImage& InspectionPictures::pictureFor(std::size_t panel, double scale) {
    Halves& halves = pictures_.at(panel);
    std::size_t index = 0;
    while (scale <= 0.5) {
        const QImage& last = halves.at(index);
        if (last.width() == 1 && last.height() == 1) break;
        if (index + 1 == halves.size()) {
            halves.push_back(last.scaled(std::max(last.width() / 2, 1), std::max(last.height() / 2, 1),
                                         Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
        scale *= 2;
        ++index;
    }
    return halves.at(index);
}

QRect InspectionPictures::panelAt(std::size_t panel) const {
    const double unit = devicePixelRatioF();
    const QSize room{static_cast<int>(std::round(width() * unit)),
                     static_cast<int>(std::round(height() * unit))};
    const int gap =
        static_cast<int>(std::round(inspection::panelGap / model_->pictures.box().width * room.width()));
    const int across = (room.width() - 2 * gap) / static_cast<int>(Panels);
    return {static_cast<int>(panel) * (across + gap), 0, across, room.height()};
}

void InspectionPictures::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.fillRect(rect(), palette().window());
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
    for (std::size_t panel = 0; panel < Panels; ++panel) {
        painter.save();
        paintPanel(painter, panel);
        painter.restore();
    }
}

void InspectionPictures::paintPanel(QPainter& painter, std::size_t panel) {
    const QRect place = panelAt(panel);
    painter.fillRect(place, palette().color(QPalette::Base));
    if (!pictures_.at(panel).empty()) {
        painter.setClipRect(place);
        const Sheet sheet = model_->sheet();
        const QRectF target{place.left() + sheet.left, place.top() + sheet.top, sheet.width, sheet.height};
        const double scale = sheet.width / pictures_.at(panel).front().width();
        const QImage& picture = pictureFor(panel, scale);
        const bool transparent = model_->chkTransparency.checked() && panel != inspection::Difference;
        if (transparent) painter.fillRect(target, chequeredGround());
        painter.setRenderHint(QPainter::SmoothPixmapTransform, scale < 1);
        if (transparent || panel == inspection::Difference) {
            painter.drawImage(target, picture);
        } else {
            painter.drawImage(target,
                              QImage{picture.constBits(), picture.width(), picture.height(),
                                     static_cast<int>(picture.bytesPerLine()), QImage::Format_RGBX8888});
        }
        if (const auto marker = model_->marker()) {
            const QRectF box{place.left() + marker->left, place.top() + marker->top, marker->width,
                             marker->height};
            painter.setPen(QPen{Qt::black, 3});
            painter.drawRect(box.adjusted(-1, -1, 1, 1));
            painter.setPen(QPen{Qt::white, 1});
            painter.drawRect(box.adjusted(-1, -1, 1, 1));
        }
        painter.setClipping(false);
    }
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void InspectionPictures::act(const std::function<void()>& change) {
    if (model_ != nullptr) refresh_->act(*this, change);
}

void InspectionPictures::adoptRoom() {
    if (model_ == nullptr) return;
    const QRect panel = panelAt(0);
    refresh_->deliver([&] { model_->setRoom(panel.width(), panel.height(), devicePixelRatioF()); });
}

void InspectionPictures::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    adoptRoom();
}

bool InspectionPictures::event(QEvent* event) {
    if (event->type() == QEvent::Show) adoptRoom();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    return QWidget::event(event);
}

Point InspectionPictures::placeIn(const QPointF& place) const {
    const double unit = devicePixelRatioF();
    const QPointF at = place * unit;
    for (std::size_t panel = Panels; panel-- > 0;) {
        if (at.x() >= panelAt(panel).left()) return {at.x() - panelAt(panel).left(), at.y()};
    }
    return {at.x(), at.y()};
}

void InspectionPictures::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) dragged_ = event->position();
}

void InspectionPictures::mouseMoveEvent(QMouseEvent* event) {
    const double unit = devicePixelRatioF();
    const QPointF way = dragged_ ? (event->position() - *dragged_) * unit : QPointF{};
    act([&] {
        if (dragged_) model_->panBy(std::round(way.x()), std::round(way.y()));
        model_->pointAt(placeIn(event->position()));
    });
    if (dragged_) dragged_ = event->position();
}

void InspectionPictures::mouseReleaseEvent(QMouseEvent* /*event*/) { dragged_.reset(); }

void InspectionPictures::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    act([this] { model_->fit(); });
}

void InspectionPictures::wheelEvent(QWheelEvent* event) {
    turned_ += event->angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
    const double whole = std::trunc(turned_);
    turned_ -= whole;
    if (whole != 0) act([&] { model_->zoomBy(static_cast<int>(whole), placeIn(event->position())); });
}

// As in the viewport.
void InspectionPictures::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const auto does = [this](const std::function<void()>& change) { act(change); };
    if (typed == "+" || typed == "=") {
        does([this] { model_->zoomBy(1); });
    } else if (typed == "-") {
        does([this] { model_->zoomBy(-1); });
    } else if (typed == "1") {
        does([this] { model_->actualSize(); });
    } else if (event->key() == Qt::Key_Home) {
        does([this] { model_->fit(); });
    } else if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp) {
        does([this, by = event->key() == Qt::Key_PageDown ? 1 : -1] { model_->stepLevel(by); });
    } else if (!moveByKey(*event)) {
        QWidget::keyPressEvent(event);
    }
}

bool InspectionPictures::moveByKey(const QKeyEvent& event) {
    constexpr double part = 0.125; // of a panel
    const int right = event.key() == Qt::Key_Right ? 1 : event.key() == Qt::Key_Left ? -1 : 0;
    const int down = event.key() == Qt::Key_Down ? 1 : event.key() == Qt::Key_Up ? -1 : 0;
    if (right == 0 && down == 0) return false;
    act([&] {
        if (event.modifiers().testFlag(Qt::ShiftModifier)) {
            model_->movePointed(right, down);
        } else {
            model_->panBy(std::round(-right * panelAt(0).width() * part),
                          std::round(-down * panelAt(0).height() * part));
        }
    });
    return true;
}

} // namespace pelrath::desktop

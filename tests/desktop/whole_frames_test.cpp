#include "desktop/bordered_box.hpp"
#include "desktop/whole_frames.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

// The sides that cannot be told from what lies inside or outside, at a quarter of the height and the width.
std::string missingSides(QWidget& window, const QRect& place, double scale) {
    QImage image{window.size() * scale, QImage::Format_RGB32};
    image.setDevicePixelRatio(scale);
    window.render(&image);
    const auto pixel = [scale](int edge) { return qRound(edge * scale); };
    const QRect outer{QPoint{pixel(place.left()), pixel(place.top())},
                      QPoint{pixel(place.right() + 1) - 1, pixel(place.bottom() + 1) - 1}};
    const int x = outer.left() + outer.width() / 4;
    const int y = outer.bottom() - outer.height() / 4;
    const QRgb outside = image.pixel(0, 0);
    const QRgb inside = image.pixel(x, y);
    std::string missing;
    const int lines = static_cast<int>(scale);
    const auto last = outer.adjusted(lines - 1, lines - 1, 1 - lines, 1 - lines);
    for (const auto& [name, side] : {std::pair{" left", QPoint{last.left(), y}},
                                     {" right", QPoint{last.right(), y}},
                                     {" top", QPoint{x, last.top()}},
                                     {" bottom", QPoint{x, last.bottom()}}}) {
        const QRgb found = image.pixel(side);
        if (found == outside || found == inside) missing += name;
    }
    return missing;
}

TEST(WholeFrames, HaveAllSidesWhereverTheyStandAtEveryScale) {
    QApplication::setStyle(new desktop::WholeFrames);
    QWidget window;
    window.resize(80, 80);
    QFrame panel{&window};
    panel.setFrameShape(QFrame::StyledPanel);
    const QPlainTextEdit text{&window};
    desktop::BorderedBox box{&window};
    box.setBorder(1);
    for (QObject* object : window.children()) {
        auto* view = dynamic_cast<QWidget*>(object);
        for (QObject* other : window.children()) {
            dynamic_cast<QWidget*>(other)->setVisible(other == view);
        }
        for (const double scale : {1.25, 1.5, 1.75, 2.25, 2.5}) {
            for (int place = 1; place <= 16; ++place) {
                view->setGeometry(place, place, 40 + place / 4, 40 + place / 4);
                EXPECT_EQ(missingSides(window, view->geometry(), scale), "")
                    << view->metaObject()->className() << " at " << place << ", scale " << scale;
            }
        }
    }
}

TEST(WholeFrames, AnEmptyMarkIsSeenOnADarkGround) {
    QApplication::setStyle(new desktop::WholeFrames);
    QCheckBox box;
    box.setPalette({QColor{53, 53, 53}, QColor{42, 42, 42}});
    const QImage image = box.grab().toImage();
    const auto light = [&image](const QPoint& place) { return image.pixelColor(place).lightness(); };
    QStyleOptionButton option;
    option.initFrom(&box);
    const QRect mark = box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    EXPECT_GT(light({mark.left(), mark.center().y()}), light(mark.center()) + 60);
}

TEST(WholeFrames, AreSeenOnBlack) {
    QApplication::setStyle(new desktop::WholeFrames);
    QWidget window;
    window.resize(80, 80);
    QPalette contrast{Qt::black, Qt::black};
    contrast.setColor(QPalette::WindowText, Qt::white);
    window.setPalette(contrast);
    QLineEdit line{&window};
    QPushButton button{&window};
    QPlainTextEdit text{&window};
    QComboBox list{&window};
    const QWidgetList views{&line, &button, &text, &list};
    for (QWidget* view : views) {
        view->setGeometry(5, 5, 60, 40);
        for (QWidget* other : views) {
            other->setVisible(other == view);
        }
        EXPECT_EQ(missingSides(window, view->geometry(), 1.25), "") << view->metaObject()->className();
    }
}

} // namespace
} // namespace pelrath::test

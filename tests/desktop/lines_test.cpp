#include "desktop/line_title.hpp"
#include "desktop/list_box_view.hpp"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

using namespace desktop;

// A list of 600 x 40 pixels as it is painted.
struct Lines : testing::Test {
    Lines() {
        layOut(view);
        view.setFont(screen.fixedFont());
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list.setBox({0, 0, 600 * screen.twipsPerPixel(), 40 * screen.twipsPerPixel()});
    }
    static void layOut(QWidget& widget) {
        widget.setAttribute(Qt::WA_DontShowOnScreen);
        widget.show();
    }
    [[nodiscard]] double columns(int count) const { return count * columnWidth; }
    // A part of a line, from one place to another.
    QImage part(int row, double from, double to) {
        const QModelIndex index = view.model()->index(row, 0);
        view.scrollTo(index);
        const QRect place = view.visualRect(index);
        const QRectF wanted{from, double(place.top()), to - from, double(place.height())};
        return view.viewport()->grab(wanted.toAlignedRect()).toImage();
    }
    // What is not of the first pixel's colour.
    static QRect ink(const QImage& image) {
        QRect all;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QPoint at{i % image.width(), i / image.width()};
            if (image.pixel(at) != image.pixel(0, 0)) all |= QRect{at, QSize{1, 1}};
        }
        return all;
    }

    QtScreen screen;
    double columnWidth = screen.textWidth("0") / screen.twipsPerPixel();
    Refresh refresh{[](const std::string& text) { ADD_FAILURE() << text; }};
    Binder binder{refresh, screen};
    ListBox list;
    ListBoxView view{nullptr};
};

TEST_F(Lines, EveryCharacterTakesOneColumnAndOnlyBlanksAreBlank) {
    const std::u32string odd = U"\t\f\n\x1B\x7F\u0085\u00A0\u00AD" // of an archive
                               U"\u2028\u2029\u202E\u2066\u200B\uFEFF\u0301\u20DD\u0E31\u093F" // shapeless
                               U"\u4E2D\uFF21\u3000\u2001\u2014\u20AC\U0001F600\U0010FFFD" // wide, missing
                               U"\u05D0\u0633\u0661\u1100\uFB01"; // from the right, joining
    list.append("x???   | 12 |");
    for (const char32_t c : odd) {
        list.append("x" + toUtf8(QStringView{QChar::fromUcs4(c)}.toString().repeated(3)) + "   | 12 |");
    }
    view.bindTo(list, binder);
    const double start = LineDelegate::textInset;
    for (int i = 1; i < list.count(); ++i) {
        const char32_t c = odd.at(static_cast<std::size_t>(i) - 1);
        const auto behind = [&](int line) { return part(line, start + columns(4) + 1, start + columns(15)); };
        EXPECT_EQ(behind(i), behind(0)) << std::hex << std::uint32_t{c};
        const bool blank = c == 0xA0 || c == 0x3000 || c == 0x2001;
        EXPECT_EQ(ink(part(i, start + columns(1) + 1, start + columns(4))).isEmpty(), blank)
            << std::hex << std::uint32_t{c};
    }
    EXPECT_FALSE(ink(part(0, start + columns(6), start + columns(15))).isEmpty());
}

TEST_F(Lines, ATitleStandsOverItsColumns) {
    list.append("  | |");
    for (const auto& [titleFramed, shape] :
         {std::pair{false, QFrame::NoFrame}, {true, QFrame::StyledPanel}, {true, QFrame::NoFrame}}) {
        view.setFrameShape(shape);
        view.bindTo(list, binder);
        LineTitle title;
        title.setFont(view.font());
        title.setText("  | |");
        title.setFrame(titleFramed);
        title.resize(600, 40);
        layOut(title);
        title.standOver(view);
        const QRect over = ink(title.grab({5, 5, 100, 30}).toImage()); // all but its frame
        const QRect below = ink(part(0, 5 - view.frameWidth(), 105 - view.frameWidth()));
        EXPECT_EQ(std::pair(over.left(), over.right()), std::pair(below.left(), below.right()))
            << titleFramed;
    }
}

TEST_F(Lines, AFittedListShowsItsRowsWhole) {
    for (int i = 0; i < 3; ++i) {
        list.append("Bdlgjpqy");
    }
    list.setHeight(31 * screen.twipsPerPixel());
    view.bindTo(list, binder);
    view.fitRows(2);
    for (const double points : {8.0, 8.5, 9.0, 9.5, 10.0, 11.0, 12.0}) {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        view.setFont(font);
        const auto top = [&](int row) { return view.visualRect(view.model()->index(row, 0)).top(); };
        EXPECT_EQ(top(0) + view.viewport()->height(), top(2)) << points;
        const QModelIndex line = view.model()->index(1, 0);
        QImage free{QSize{100, 100} * view.devicePixelRatio(), QImage::Format_RGB32};
        free.setDevicePixelRatio(view.devicePixelRatio());
        free.fill(Qt::white);
        QPainter painter{&free};
        QStyleOptionViewItem roomy;
        roomy.rect = {0, 0, 100, 100};
        view.itemDelegate()->paint(&painter, roomy, line);
        EXPECT_EQ(ink(part(1, 0, 100)).size(), ink(free).size()) << points;
    }
}

} // namespace
} // namespace pelrath::test

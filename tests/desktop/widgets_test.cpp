#include "desktop/line_title.hpp"
#include "desktop/list_box_view.hpp"
#include "desktop/path_edit.hpp"
#include "desktop/qt_busy_sign.hpp"
#include "desktop/qt_services.hpp"
#include "support/temporary_folder.hpp"

#include <QTest>
#include <QtWidgets>

namespace pelrath::test {
namespace {

using namespace desktop;

// Widgets in an active window that no window manager sees.
struct Widgets : testing::Test {
    Widgets() {
        layOut(window);
        QApplication::setActiveWindow(&window);
    }
    static void layOut(QWidget& widget) {
        widget.setAttribute(Qt::WA_DontShowOnScreen);
        widget.show();
    }
    template <class View, class Control, class... More>
    View& bound(Control& control, More&... more) {
        auto* view = new View{&window};
        binder.bind(control, *view, more...);
        view->show();
        return *view;
    }

    QtScreen screen;
    Refresh refresh{[](const std::string& text) { ADD_FAILURE() << text; }};
    Binder binder{refresh, screen};
    QWidget window;
};

TEST_F(Widgets, ShowWhatTheirControlsAreAndHandOnWhatTheUserDoes) {
    Label label;
    CheckBox box;
    ScrollBar bar;
    DropDownList list;
    TextBox path;
    OptionGroup<2> options;
    QButtonGroup group;
    const SeenEnd end = SeenEnd::Last;
    auto& labelView = bound<QLabel>(label);
    auto& boxView = bound<QCheckBox>(box);
    auto& barView = bound<QScrollBar>(bar);
    auto& listView = bound<QComboBox>(list);
    auto& pathView = bound<QLineEdit>(path, end);
    auto& first = bound<QRadioButton>(options[0], group);
    label.setCaption("this & that");
    label.setTextColor(TextColor::Greyed);
    box.setValue(CheckValue::Grey);
    bar.setRange(0, 40);
    bar.setSteps(3, 7);
    bar.setValue(9);
    bar.setTabStop(false);
    list.setLines({"one", "two", "three"});
    list.select(1);
    path.setLocked(true);
    path.setText("/<b>/&");
    options[0].select();
    refresh.flush();
    EXPECT_TRUE(labelView.text() == "this && that" &&
                labelView.foregroundRole() == QPalette::PlaceholderText);
    EXPECT_TRUE(boxView.checkState() == Qt::PartiallyChecked && first.isChecked());
    EXPECT_EQ(row(barView.maximum(), barView.singleStep(), barView.pageStep(), barView.value()),
              "40, 3, 7, 9");
    EXPECT_EQ(barView.focusPolicy(), Qt::ClickFocus);
    EXPECT_EQ(listView.currentText(), "two");
    EXPECT_EQ(row(pathView.toolTip().toStdString(), pathView.cursorPosition()),
              "<span>/&lt;b&gt;/&amp;</span>, 6");
    options[0].deselect();
    boxView.click();
    barView.setValue(20);
    QTest::keyClick(&listView, Qt::Key_Down);
    refresh.flush();
    EXPECT_EQ(row(first.isChecked(), box.checked(), boxView.isTristate(), bar.value(), list.selectedRow()),
              "false, true, false, 20, 2");
    boxView.setFocus();
    box.setEnabled(false);
    refresh.flush();
    EXPECT_FALSE(boxView.hasFocus());
    box.setEnabled(true);
    refresh.flush();
    EXPECT_TRUE(boxView.hasFocus());
}

TEST_F(Widgets, CountInCharactersAndRoundEdges) {
    const QString text = QString::fromUtf8("a\U0001F600b");
    EXPECT_EQ(row(charactersBefore(text, 3), unitsOfCharacters(text, 2)), "2, 3");
    const double pixel = screen.twipsPerPixel();
    EXPECT_EQ(screen.pixels(Box{0.4 * pixel, 0, 1.2 * pixel, pixel}), QRect(0, 0, 2, 1));
}

TEST_F(Widgets, TakeNoNameForMarkupAndAWaitingCursorBack) {
    QtBusySign sign;
    QtMessageBoxes boxes{refresh, sign};
    QTimer::singleShot(0, [] {
        auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->textFormat() == Qt::PlainText &&
                    box->defaultButton() == box->button(QMessageBox::Ok));
        box->reject();
    });
    EXPECT_EQ(boxes.show("<b>", "t", BoxIcon::None, BoxButtons::Ok), BoxAnswer::Ok) << "given up";
    QApplication::setActiveWindow(&window);
    sign.show("<b>", 1, std::uint64_t{64} << 20);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(window.findChild<QFrame*>("busySign")->findChild<QLabel*>()->textFormat(), Qt::PlainText);
    sign.clear();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Widgets, APathIsCompletedFromItsFolder) {
    const TemporaryFolder folder;
    folder.makeFolder("b10/in"), folder.makeFolder("b9");
    PathEdit path{&window};
    path.show();
    path.setFocus();
    path.setBase(QString::fromStdString(folder.path()));
    const auto offered = [&] {
        return qobject_cast<QStringListModel*>(path.completer()->model())->stringList().join(' ');
    };
    int confirmed = 0;
    path.confirmed = [&] { ++confirmed; };
    QTest::keyClicks(&path, "b");
    EXPECT_TRUE(QTest::qWaitFor([&] { return offered() == "b10 b9"; }));
    QTest::keyClick(&path, Qt::Key_Return);
    EXPECT_EQ(confirmed, 1) << "none of those offered";
    QTest::keyClicks(&path, "1");
    EXPECT_EQ(offered(), "b10 b9") << "of the folder that is listed already";
    QTest::keyClicks(&path, "0/");
    EXPECT_TRUE(QTest::qWaitFor([&] { return offered() == "b10/in"; }));
}

// A list of 600 x 40 pixels as it is painted.
struct Lines : Widgets {
    Lines() {
        layOut(view);
        view.setFont(screen.fixedFont());
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list.setBox({0, 0, 600 * screen.twipsPerPixel(), 40 * screen.twipsPerPixel()});
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

    double columnWidth = screen.textWidth("0") / screen.twipsPerPixel();
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

TEST_F(Lines, AreChosenScrolledAndReplaced) {
    for (const char* line : {"a", "b", "c"}) {
        list.append(line);
    }
    ScrollBar sideways;
    sideways.setRange(0, 40);
    sideways.setSteps(3, 7);
    sideways.setValue(10);
    auto& bar = bound<QScrollBar>(sideways);
    view.scrollSidewaysBy(bar);
    view.bindTo(list, binder);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(sideways.value(), 13);
    QWheelEvent turn{{9, 9}, {9, 9}, {}, {0, -240}, {}, Qt::ShiftModifier, Qt::NoScrollPhase, false};
    QApplication::sendEvent(view.viewport(), &turn);
    EXPECT_EQ(sideways.value(), 19); // two steps
    const QPoint second = view.visualRect(view.model()->index(1, 0)).center();
    int clicks = 0;
    const Connection counter = list.click.connect([&] { ++clicks; });
    for (const Qt::KeyboardModifier key : {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, key, second);
    }
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(row(list.selectedRow(), view.selectionModel()->hasSelection(), clicks), "1, true, 4");
    list.clear();
    list.append("d");
    refresh.flush();
    EXPECT_EQ(row(view.model()->rowCount(), view.model()->index(0, 0).data().toString().toStdString()),
              "1, d");
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

#include "desktop/guide_window.hpp"
#include "desktop/real_window.hpp"

#include <QTranslator>

namespace pelrath::test {
namespace {

/// What a desktop brings whose language is written from right to left.
struct FromRightToLeft : QTranslator {
    [[nodiscard]] QString translate(const char* /*context*/, const char* text, const char* /*which*/,
                                    int /*count*/) const override {
        return QByteArrayView{text} == "QT_LAYOUT_DIRECTION" ? "RTL" : QString{};
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

TEST_F(RealWindow, IsLaidOutFromLeftToRightOnEveryDesktop) {
    FromRightToLeft language;
    QApplication::installTranslator(&language);
    openArchive();
    user.then([this] {
        const auto& path = widget<QLineEdit>("Text1");
        EXPECT_EQ(path.layoutDirection(), Qt::LeftToRight);
        EXPECT_LT(path.x(), widget<QPushButton>("Command1").x());
        EXPECT_EQ(list("Output0").horizontalScrollBar()->value(), 0);
    });
    run();
    QApplication::removeTranslator(&language);
}

TEST_F(RealWindow, AnArchiveThatIsGoneIsGreyedInTheMenu) {
    (void)folder.write("Pelrath.ini", "[Setup]\nfirsttimedone=True\n[Recent]\n1=/no such/gone.cdds\n");
    openArchive();
    const auto isOnOffer = [](const char* name) {
        for (const QAction* action : QApplication::activePopupWidget()->actions()) {
            if (action->text().endsWith(name)) return action->isEnabled();
        }
        throw std::invalid_argument{name};
    };
    user.then([this] {
            auto& box = widget<QLineEdit>("Text1");
            QContextMenuEvent wish{QContextMenuEvent::Keyboard, {3, 3}, box.mapToGlobal(QPoint{3, 3})};
            QApplication::sendEvent(&box, &wish);
        })
        .until("the look at the disk", [isOnOffer] { return !isOnOffer("gone.cdds"); })
        .then([isOnOffer] {
            EXPECT_TRUE(isOnOffer("demo.cdds"));
            QApplication::activePopupWidget()->close();
        });
    run();
}

TEST_F(RealWindow, F1ShowsTheGuideWithItsPictures) {
    openArchive();
    desktop::GuideWindow* guide = nullptr;
    const auto isShown = [&guide] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = dynamic_cast<desktop::GuideWindow*>(window)) guide = found;
        }
        return guide != nullptr && isSeen(guide);
    };
    user.then([this] { press(widget<QLineEdit>("Text1"), Qt::Key_F1); })
        .until("the guide", isShown)
        .then([&guide] {
            EXPECT_TRUE(guide->toPlainText().contains("Pelrath"));
            int pictures = 0;
            for (QTextBlock block = guide->document()->begin(); block.isValid(); block = block.next()) {
                for (auto part = block.begin(); part != block.end(); ++part) {
                    const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
                    if (!format.isValid()) continue;
                    const auto picture =
                        guide->document()->resource(QTextDocument::ImageResource, format.name());
                    const int width = picture.value<QImage>().width();
                    EXPECT_TRUE(width > 0 && width <= guide->viewport()->width())
                        << format.name().toStdString();
                    ++pictures;
                }
            }
            EXPECT_GT(pictures, 5);
            press(*guide, Qt::Key_Escape);
            EXPECT_FALSE(guide->isVisible());
        });
    run();
}

} // namespace
} // namespace pelrath::test

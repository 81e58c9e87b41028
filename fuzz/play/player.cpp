#include "player.hpp"

#include "desktop/application.hpp"
#include "desktop/units.hpp"
#include "platform/posix/end_signals.hpp"
#include "support/values.hpp"

#include <QSocketNotifier>
#include <QTest>
#include <QtWidgets>

#include <iostream>

namespace pelrath::monkey {

namespace {

using test::row;

constexpr std::array keys{Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Space,  Qt::Key_Escape,
                          Qt::Key_Down,   Qt::Key_Up,   Qt::Key_Right,  Qt::Key_PageDown,
                          Qt::Key_End,    Qt::Key_Home, Qt::Key_Delete, Qt::Key_Backspace};
constexpr std::array mainCommands{
    "Command1",    "Command1",      "cmdExtract",    "cmdExtract", "cmdExtract",
    "cmdInsert",   "cmdInsert",     "cmdInsert",     "cmdInsert",  "chkGraphicDisplay",
    "cmdReadCDDS", "viewPortSize0", "viewPortSize1", "cmdShow1",   "cmdGetExtractInsertFolder"};
constexpr std::array dialogCommands{"cmdExtractInsert", "cmdExtractInsert", "cmdExtractInsert",
                                    "cmdExtractInsert", "cmdExtractInsert", "optOutFileType0",
                                    "optOutFileType0",  "optOutFileType1",  "optMipmaps0",
                                    "optMipmaps1",      "optMipmaps2",      "optMipmaps3",
                                    "chkDestination0",  "chkDestination1",  "chkSaveCdds",
                                    "chkLaunchEditor",  "cmdQuit",          "chkOverwriteExistingFiles",
                                    "cmdCheck"};
constexpr std::array copiesCommands{"cmdRestore", "cmdRestore", "cmdNone",  "cmdAll",
                                    "cmdStop",    "cmdClose",   "cmdFolder"};

class Player : public QObject {
public:
    Player(const World& world, unsigned seed, Board& board)
        : world_(world), seed_(seed), board_(board), gate_(program_.refresh.gate()) {
        program_.session.programFolder = world.programFolder();
        qApp->installEventFilter(this);
        watch();
    }

    int run() {
        static const auto& ends = *new EndSignals; // also for the time behind the program's end
        QSocketNotifier asked{ends.handle(), QSocketNotifier::Read};
        connect(&asked, &QSocketNotifier::activated, &program_.window, [&] {
            ends.taken();
            program_.window.close();
        });
        soon();
        program_.start();
        QApplication::exec();
        expect(program_.main.window.isUnloaded(), "the program ends by its close");
        expect(state() == stateAtClose_, "nothing reacts behind the close");
        return wrong_ ? 1 : 0;
    }

protected:
    // The file dialog would remove and rename what is there.
    bool eventFilter(QObject* object, QEvent* event) override {
        auto* files = event->type() == QEvent::Polish ? qobject_cast<QFileDialog*>(object) : nullptr;
        if (files != nullptr) files->setOption(QFileDialog::ReadOnly);
        return false;
    }

private:
    void expect(bool holds, const std::string& what) {
        if (holds) return;
        if (!wrong_) std::cerr << "wrong: " << what << std::endl;
        wrong_ = true;
    }

    // Behind the program's own reactions.
    void watch() {
        Main& main = program_.main;
        const auto after = [this](Signal<>& signal, const std::function<void()>& look) {
            connections_.push_back(signal.connect(look));
        };
        after(main.Output[TexturePane].click, [this] { lookAtChoice(); });
        after(main.window.unloaded, [this] { stateAtClose_ = state(); });
        after(main.cmdReadCDDS.changed, [this, &main, clearances = std::uint64_t{0}]() mutable {
            const ListBox& pane = main.Output[TexturePane];
            const bool filled = pane.count() > 0 && pane.clearances() != clearances;
            if (main.cmdReadCDDS.enabled() && filled) board_.count("reading");
            clearances = pane.clearances();
        });
        after(main.transfer.cmdExtractInsert.click, [this, &summary = main.transfer.ExtractSummary] {
            const auto says = [&](const char* words) {
                return summary.text().find(words) != std::string::npos;
            };
            if (says(" written\r\n")) board_.count("extraction");
            if (says("(s) inserted.") && !says("\n0 m")) board_.count("insertion");
            if (says("Safe copy done as ")) board_.count("safe copy");
        });
    }

    [[nodiscard]] std::string state() const {
        const Main& main = program_.main;
        const auto& dialog = main.transfer;
        return row(program_.session.selectedTexture, main.Output[0].count(), main.chkGraphicDisplay.checked(),
                   main.Text8.text(), main.incrementalSearchText.text(),
                   static_cast<int>(program_.session.mode), main.backViewportColor.selectedIndex(),
                   main.viewPortSize.selectedIndex(), dialog.optMipmaps.selectedIndex(),
                   dialog.chkSaveCdds.checked());
    }
    [[nodiscard]] bool operationRuns() const {
        const auto* sign = program_.transfer.findChild<QWidget*>("busySign");
        return !program_.main.cmdReadCDDS.enabled() || sign != nullptr;
    }
    void lookAtChoice() {
        const Session& session = program_.session;
        if (session.selectedTexture < 0) return;
        std::vector<ListBox::Run> levels;
        int first = 0;
        for (int i = 0; i <= session.selectedTexture; ++i) {
            const int count = session.archive.textures.at(static_cast<std::size_t>(i)).mipmapCount;
            levels.assign(count > 0 ? 1 : 0, {first, first + count - 1});
            first += count;
        }
        expect(program_.main.Output[MipmapPane].selectedRuns() == levels, "its levels are marked");
    }
    void look() {
        QStringList dialogs;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->inherits("QDialog"))
                dialogs << window->metaObject()->className() + window->objectName();
            const auto* box = qobject_cast<const QMessageBox*>(window);
            const bool unhandled =
                box != nullptr && box->windowTitle() == programTitle && !box->text().contains("rror");
            expect(!unhandled, "no reaction fails: " + (unhandled ? box->text().toStdString() : ""));
        }
        expect(dialogs.removeDuplicates() == 0, "one dialog of a kind");
        if (!gate_.isIdle()) return;
        expect(dialogs.isEmpty(), "no dialog without its turn");
        program_.refresh.flush();
        lookAtModel();
        lookAtFace();
    }
    void lookAtModel() {
        const Main& main = program_.main;
        const CddsArchive& archive = program_.session.archive;
        const ListBox& pane = main.Output[TexturePane];
        const int textures = static_cast<int>(archive.textures.size()), rows = pane.count();
        const int names = main.incrementalSearchList.count(), levels = main.Output[MipmapPane].count();
        const int chosen = program_.session.selectedTexture;
        expect((rows == 0 || rows == textures) && names == rows &&
                   levels == (rows == 0 ? 0 : archive.totalMipmapCount),
               "the lists show the catalogue: " + row(textures, rows, names, levels));
        expect(chosen >= -1 && chosen < std::max(textures, 1) && (rows == 0 || pane.selectedRow() == chosen),
               "what is chosen is marked: " + row(textures, rows, chosen, pane.selectedRow()));
        const bool resting = main.chkGraphicDisplay.checked() && !program_.session.viewer.Running;
        resting_ = resting ? resting_ + 1 : 0;
        expect(resting_ < 50, "the picture is drawn while the display is on");
    }
    void lookAtFace() {
        const auto& window = program_.window;
        const Main& main = program_.main;
        const auto shows = [this](const std::string& what, const auto& shown, const auto& is) {
            expect(shown == is, row(what, "shows", shown, "and is", is));
        };
        for (const auto& [name, list] : {std::pair{"Output0", &main.Output[0]},
                                         {"Output1", &main.Output[1]},
                                         {"incrementalSearchList", &main.incrementalSearchList}}) {
            shows(name, find<QListView>(window, name)->model()->rowCount(), list->count());
        }
        for (const auto& [name, box] : {std::pair{"Text1", &main.Text1},
                                        {"Text8", &main.Text8},
                                        {"incrementalSearchText", &main.incrementalSearchText}}) {
            shows(name, find<QLineEdit>(window, name)->text().toStdString(), box->text());
        }
        shows("Display", find<QCheckBox>(window, "chkGraphicDisplay")->isChecked(),
              main.chkGraphicDisplay.checked());
        for (std::size_t i = 0; i < main.backViewportColor.size(); ++i) {
            const QString name = "backViewportColor" + QString::number(i);
            shows(name.toStdString(), find<QAbstractButton>(window, name)->isChecked(),
                  main.backViewportColor[i].selected());
        }
    }

    void soon() {
        QTimer::singleShot(5 + Dice{seed_, 1, ++turn_}.below(50), this, [this] { turn(); });
    }
    void turn() {
        ++board_.beats;
        Dice dice{seed_, 2, turn_};
        soon(); // before the act, which may not return before later ones have run
        look();
        const bool operation = operationRuns();
        const std::string before = state();
        if (operation) board_.count("act in an operation");
        act(dice);
        expect(!operation || state() == before, "nothing reacts in an operation");
        for (int i = 0; i < 5 && program_.main.window.isUnloaded(); ++i) {
            act(dice);
        }
    }
    void act(Dice& dice) {
        QWidget* const modal = QApplication::activeModalWidget();
        QWidget& window = modal != nullptr && !dice.onceIn(6) ? *modal : program_.window;
        if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
        if (dice.onceIn(!gate_.isQuiet() ? 20 : modal != nullptr ? 100 : 1000)) {
            close(dice.onceIn(5) ? program_.window : window);
        } else if (dice.below(5) < 3) {
            goOn(window, dice);
        } else {
            const QList<QWidget*> all = window.findChildren<QWidget*>();
            doAnything(all.isEmpty() ? window : *dice.oneOf(all), dice);
        }
    }
    void close(QWidget& window) {
        if (!gate_.isQuiet()) board_.count("close in an operation");
        board_.act("close", nameOf(window));
        window.close();
    }

    // What leads further in.
    void goOn(QWidget& window, Dice& dice) {
        if (auto* files = qobject_cast<QFileDialog*>(&window)) {
            type(*find<QLineEdit>(*files, "fileNameEdit"), world_.someArchive(dice));
        } else if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            const auto buttons = box->buttons();
            command(*dice.oneOf(buttons));
        } else if (auto* folder = window.findChild<QLineEdit*>("selectedFolder")) {
            if (dice.onceIn(2)) type(*folder, world_.someFolder(dice));
            command(*find<QAbstractButton>(window, dice.onceIn(4) ? "cmdGetExtractInsertFolder" : "cmdOK"));
        } else if (window.objectName() == "FolderPicker") {
            type(*window.findChild<QLineEdit*>(), world_.someFolder(dice));
        } else if (window.objectName() == "Disclaimer") {
            command(*find<QAbstractButton>(window, dice.onceIn(8) ? "Command11" : "Command10"));
        } else if (window.objectName() == "TextureExtractionInsertion") {
            if (dice.onceIn(4)) return choose(*find<QListView>(window, "List1"), dice);
            command(*find<QAbstractButton>(window, dice.oneOf(dialogCommands)));
        } else if (window.objectName() == "SafeCopies") {
            command(*find<QAbstractButton>(window, dice.oneOf(copiesCommands)));
        } else if (window.objectName() == "Inspection") {
            command(*find<QAbstractButton>(window, "cmdClose"));
        } else if (&window == &program_.window) {
            useMain(dice);
        }
    }
    void useMain(Dice& dice) {
        const int kind = dice.below(8);
        if (kind < 3) {
            choose(*find<QListView>(program_.window, kind == 0 ? "incrementalSearchList" : "Output0"), dice);
        } else if (kind == 3) {
            type(*find<QLineEdit>(program_.window, "Text8"), world_.someFolder(dice));
        } else if (kind == 5 && dice.onceIn(4)) {
            program_.window.safeCopies();
        } else if (kind == 4) {
            constexpr std::array words{"tw", "TWIN", "wall", "other", "more2999", "x", ""};
            type(*find<QLineEdit>(program_.window, "incrementalSearchText"), dice.oneOf(words));
        } else {
            command(*find<QAbstractButton>(program_.window, dice.oneOf(mainCommands)));
        }
    }
    void command(QAbstractButton& button) {
        board_.act("command", nameOf(button));
        button.click();
    }
    void choose(QListView& list, Dice& dice) {
        const int rows = list.model()->rowCount();
        board_.act("answer", nameOf(list));
        if (rows == 0) return;
        const QModelIndex line = list.model()->index(dice.below(dice.onceIn(3) ? rows : 2), 0);
        list.scrollTo(line);
        const QRect place = list.visualRect(line);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {place.left() + 8, place.center().y()});
    }
    void type(QLineEdit& box, const std::string& text) {
        board_.act("answer", nameOf(box) + " " + text);
        box.selectAll();
        QTest::keyClicks(&box, QString::fromStdString(text));
        QTest::keyClick(&box, Qt::Key_Return);
    }

    void doAnything(QWidget& view, Dice& dice) {
        if (!view.isVisible()) return;
        const QPoint place{dice.below(view.width()), dice.below(view.height())};
        const Qt::Key key = dice.oneOf(keys);
        const int kind = dice.below(10);
        board_.act("event", row(kind, nameOf(view), place.x(), place.y(), static_cast<int>(key)));
        auto* button = qobject_cast<QAbstractButton*>(&view);
        if (kind < 2) {
            QTest::mouseClick(&view, Qt::LeftButton, {}, place);
        } else if (kind == 2) {
            QTest::mouseDClick(&view, Qt::LeftButton, {}, place);
        } else if (kind == 3) {
            QTest::keyClick(&view, key);
        } else if (kind == 4) {
            QTest::keyClick(&view, static_cast<Qt::Key>(Qt::Key_A + dice.below(26)), Qt::AltModifier);
        } else if (kind == 5) {
            QCoreApplication::postEvent(&view, new QKeyEvent{QEvent::KeyPress, key, {}});
            QCoreApplication::postEvent(&view, new QKeyEvent{QEvent::KeyRelease, key, {}});
        } else if (kind == 6) {
            view.setFocus();
        } else if (kind == 7 && button != nullptr) {
            button->animateClick();
        } else if (auto* bar = qobject_cast<QAbstractSlider*>(&view)) {
            bar->setValue(dice.below(bar->maximum() + 1));
        } else if (kind == 8 && dice.onceIn(5)) {
            view.window()->resize(200 + dice.below(1400), 200 + dice.below(800));
        } else if (kind == 9 && dice.onceIn(20)) {
            view.window()->setWindowState(view.window()->windowState() ^ Qt::WindowMaximized);
        }
    }

    template <class Widget>
    static Widget* find(const QWidget& window, const QString& name) {
        return window.findChild<Widget*>(name);
    }
    static std::string nameOf(const QWidget& widget) {
        return (widget.metaObject()->className() + (" " + widget.objectName())).toStdString();
    }

    const World& world_;
    unsigned seed_, turn_ = 0;
    Board& board_;
    desktop::Application program_;
    desktop::Gate& gate_;
    std::string stateAtClose_;
    int resting_ = 0;
    bool wrong_ = false;
    Connections connections_;
};

} // namespace

int play(const World& world, unsigned seed, Board& board) {
    std::string name = "pelrath";
    std::array arguments{name.data(), static_cast<char*>(nullptr)};
    int count = 1;
    desktop::Application::prepareGraphics();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication qt{count, arguments.data()};
    Player player{world, seed, board};
    return player.run();
}

} // namespace pelrath::monkey

// Graphics drivers stay loaded to the end, so that a leak report can name them and leave them out.
extern "C" int dlclose(void* /*library*/) { return 0; }

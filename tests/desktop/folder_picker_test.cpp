#include "desktop/application.hpp"
#include "desktop/folder_picker_dialog.hpp"
#include "desktop/folder_tree_view.hpp"
#include "desktop/real_user.hpp"
#include "dialogs/browse_for_folder.hpp"
#include "platform/posix/files.hpp"
#include "support/temporary_folder.hpp"

#include <atomic>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

namespace {

// Folders named "hanging" do not answer while it is set.
std::atomic<bool> hanging = false;
void mayHang(const char* path) {
    if (std::string_view{path}.ends_with("hanging")) hanging.wait(true);
}
void answerAgain() { (hanging = false, hanging.notify_all()); }

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// In the place of the system's own for this whole program.
extern "C" DIR* opendir(const char* path) {
    mayHang(path);
    return real<DIR* (*)(const char*)>("opendir")(path);
}
extern "C" int stat(const char* path, struct stat* info) noexcept {
    mayHang(path);
    return real<int (*)(const char*, struct stat*)>("stat")(path, info);
}

namespace pelrath::test {
namespace {

using desktop::FolderTreeView;

// The real dialog, and a user in front of it.
struct RealFolderPicker : RealUser {
    RealFolderPicker() {
        browser.EditBox = browser.StatusText = browser.FileSystemOnly = browser.ValidateEditBox =
            browser.UseNewUI = true;
        make({"b10", "b9/inside", ".hidden/deep", "\u00C9t\u00E9 au lait", longName, "bad\xFFname", "real"});
        (void)folder.write("file", "");
        std::filesystem::create_directory_symlink("real", folder.file("link"));
        std::filesystem::create_directory_symlink(".", folder.file("loop"));
        std::filesystem::create_symlink("selfish", folder.file("selfish"));
        std::filesystem::create_symlink("file", folder.file("file-link"));
    }
    void make(std::initializer_list<std::string> names) const {
        for (const std::string& name : names) {
            std::filesystem::create_directories(folder.file(name));
        }
    }
    // Lets the user do it and says what was chosen.
    std::string run() {
        std::string chosen;
        runFor([&] { chosen = browser.BrowseForFolder(); });
        return chosen;
    }
    static bool isOpen() { return isSeen(dialog<desktop::FolderPickerDialog>()); }
    static FolderTreeView& tree() { return in<FolderTreeView>("tree"); }
    static QLineEdit& path() { return in<QLineEdit>("path"); }
    static std::string offered() {
        return qobject_cast<QStringListModel*>(path().completer()->model())
            ->stringList()
            .join(' ')
            .toStdString();
    }
    static std::string status() { return in<QLabel>("status").accessibleName().toStdString(); }
    static QPushButton& ok() {
        return *dialog<QDialog>()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }
    static void type(const std::string& text) {
        path().setFocus();
        path().selectAll();
        QInputMethodEvent event; // any letters, at once
        event.setCommitString(QString::fromStdString(text));
        QApplication::sendEvent(&path(), &event);
    }
    tour::UserScript& untilChosen(const std::string& what) {
        return user.until(QString::fromStdString(what),
                          [what] { return isOpen() && tree().chosenPath().toStdString() == what; });
    }
    // The rows under the chosen folder.
    static std::string rows() {
        QStringList names;
        const QModelIndex chosen = tree().currentIndex();
        for (int i = 0; i < tree().model()->rowCount(chosen); ++i) {
            names << tree().model()->index(i, 0, chosen).data().toString();
        }
        return names.join('|').toStdString();
    }
    tour::UserScript& untilRows(const std::string& expected) {
        return user.until(QString::fromStdString(expected),
                          [expected] { return isOpen() && rows() == expected; });
    }

    const std::string longName = std::string(254, 'n') + "x";
    TemporaryFolder folder;
    desktop::Refresh refresh{[](const std::string& text) { ADD_FAILURE() << text; }};
    desktop::QtFolderPicker picker{refresh};
    cBrowseForFolder browser{picker};
};

TEST_F(RealFolderPicker, ATypedPathIsTakenIfItLeadsToAFolder) {
    const std::string top = folder.path();
    // What is typed over the initial folder, and the path that comes back; none: it leads to no folder.
    const std::pair<std::string, std::string> cases[] = {
        {top, top},
        {top + "//b9/../real/", top + "/real"},
        {"b9/inside", top + "/b9/inside"},
        {"..", std::string{parentFolder(top)}},
        {"~", std::getenv("HOME")},
        {"/", "/"},
        {"\u00C9t\u00E9 au lait", top + "/\u00C9t\u00E9 au lait"},
        {top + "/link", top + "/link"},
        {top + "/" + longName, ""}, // longer than a path can be
        {top + "/file", ""},
        {top + "/no such", ""},
        {" ", ""}};
    std::string refused;
    const Connection failed = browser.ValidationFailed.connect(
        [&](const std::string& sPath, bool& /*bKeepOpen*/) { refused = sPath; });
    for (const auto& [typed, chosen] : cases) {
        browser.InitialDir = top;
        refused.clear();
        untilChosen(top).then([&, typed = typed] {
            EXPECT_EQ(row(status(), path().text().toStdString(), ok().isEnabled()), row(top, top, true));
            type(typed);
            press(path(), Qt::Key_Return);
        });
        EXPECT_EQ(run(), chosen);
        EXPECT_EQ(row(browser.DisplayName(), refused),
                  row(chosen == "/" ? "/" : fileName(chosen), chosen.empty() ? typed : ""));
    }
}

TEST_F(RealFolderPicker, TheTreeIsWalkedWithTheKeys) {
    browser.RootDir = browser.InitialDir = folder.path();
    const std::string all = "b9|b10|\u00C9t\u00E9 au lait|link|loop|" + longName + "|real";
    untilChosen(folder.path());
    untilRows(all).then([] { in<QCheckBox>("hidden").click(); });
    untilRows(".hidden|" + all).then([] {
        press(tree(), Qt::Key_Down);
        EXPECT_TRUE(status().ends_with("/.hidden"));
        in<QCheckBox>("hidden").click(); // its row goes
        press(tree(), Qt::Key_Home);
        press(tree(), Qt::Key_Down, 6);
        EXPECT_EQ(row(status(), path().text().toStdString(), ok().isEnabled()),
                  ", , false"); // no path can be that long
        press(tree(), Qt::Key_Up);
        press(tree(), Qt::Key_Right); // a link to the folder itself
    });
    untilRows(all).then([] {
        press(tree(), Qt::Key_Down, 4);
        EXPECT_TRUE(status().ends_with("/loop/link"));
        press(tree(), Qt::Key_Return);
    });
    EXPECT_EQ(run(), folder.path() + "/loop/link");
    EXPECT_EQ(browser.DisplayName(), "link");
}

TEST_F(RealFolderPicker, EventsMayForbidAndKeepOpen) {
    Connections handlers;
    std::string initially;
    handlers.push_back(browser.Initialized.connect([&] { initially += status(); }));
    handlers.push_back(browser.SelectionChanged.connect([](const std::string& sPath, bool& bAllowOk) {
        EXPECT_EQ(row(status(), bAllowOk), row(sPath, true));
        bAllowOk = !sPath.ends_with("/b10");
    }));
    handlers.push_back(browser.ValidationFailed.connect([](const std::string& /*sPath*/, bool& bKeepOpen) {
        EXPECT_EQ(row(status(), bKeepOpen), "Path invalid: nowhere, false");
        bKeepOpen = true;
    }));
    browser.InitialDir = folder.path();
    untilChosen(folder.path()).then([&] {
        EXPECT_EQ(initially, folder.path());
        browser.SetFolder(folder.file("b10"));
    });
    untilChosen(folder.file("b10")).then([] {
        EXPECT_FALSE(ok().isEnabled());
        type("nowhere");
        EXPECT_TRUE(ok().isEnabled());
        ok().setFocus(), ok().click();
    });
    user.until("the complaint", [] { return status().starts_with("Path invalid"); }).then([&] {
        EXPECT_FALSE(ok().isEnabled());
        EXPECT_TRUE(tree().hasFocus()) << "the next Enter would press Cancel";
        browser.SetStatus("my own");
        EXPECT_EQ(status(), "my own");
        browser.SetFolder(folder.file("none")); // changes nothing
        browser.SetFolder(folder.file("b9"));
    });
    untilChosen(folder.file("b9")).then([] { ok().click(); });
    EXPECT_EQ(run(), folder.file("b9"));
}

TEST_F(RealFolderPicker, WhatHasNoPathCannotBeChosenButWhereItMay) {
    for (const bool fileSystemOnly : {true, false}) {
        browser.FileSystemOnly = fileSystemOnly;
        browser.RootDir = folder.file("none"); // no folder: everything is shown
        browser.InitialDir = folder.file("none");
        user.until("the tree", [] { return isOpen() && tree().model()->rowCount() == 1; })
            .then([fileSystemOnly] {
                EXPECT_EQ(row(tree().hasChoice(), ok().isEnabled()), "false, false");
                press(tree(), Qt::Key_Space);
                EXPECT_EQ(row(tree().chosenName().toStdString(), status(), ok().isEnabled()),
                          row("Computer", "", !fileSystemOnly));
                press(tree(), fileSystemOnly ? Qt::Key_Escape : Qt::Key_Return);
            });
        EXPECT_EQ(run(), "");
        EXPECT_EQ(browser.DisplayName(), fileSystemOnly ? "" : "Computer");
    }
}

TEST_F(RealFolderPicker, WithoutOptionsThereIsOnlyTheTree) {
    browser.EditBox = browser.StatusText = browser.FileSystemOnly = browser.ValidateEditBox =
        browser.UseNewUI = false;
    browser.title = "Where <b>to</b> & fro?";
    browser.InitialDir = folder.file(".hidden/deep");
    untilChosen(browser.InitialDir).then([] {
        for (const char* name : {"status", "path", "newFolder", "hidden"}) {
            EXPECT_FALSE(in<QWidget>(name).isVisible()) << name;
        }
        EXPECT_TRUE(tree().hasFocus());
        EXPECT_EQ(in<QLabel>("instruction").text(), "Where <b>to</b> & fro?");
        EXPECT_EQ(in<QLabel>("instruction").textFormat(), Qt::PlainText);
        press(tree(), Qt::Key_Return);
    });
    EXPECT_EQ(run(), folder.file(".hidden/deep"));
}

TEST_F(RealFolderPicker, AFolderThatDoesNotAnswerHoldsUpNothing) {
    make({"hanging", "real/hanging"});
    hanging = true;
    browser.InitialDir = folder.file("hanging");
    user.until("the tree", [] { return isOpen() && tree().model()->rowCount() == 1; }).then([&] {
        EXPECT_FALSE(tree().hasChoice());
        browser.SetFolder(folder.path() + "/.");
    });
    untilChosen(folder.path()).then([] { press(tree(), Qt::Key_Right); });
    untilRows("b9|b10|\u00C9t\u00E9 au lait|hanging|link|loop|" + longName + "|real").then([&] {
        press(tree(), Qt::Key_Down, 4);
        press(tree(), Qt::Key_Right); // never gets its rows
    });
    user.until("a word about it", [] { return tree().currentIndex().data().toString().contains("reading"); })
        .then([&] {
            ok().click(); // waits for an answer
            EXPECT_FALSE(ok().isEnabled());
            type(folder.file("real/hang"));
            EXPECT_TRUE(ok().isEnabled());
            type(folder.file("b9/i"));
        })
        .until("what is in b9", [&] { return offered() == folder.file("b9/inside"); })
        .then([] { answerAgain(); }); // too late
    user.until("a few turns", [turns = 0]() mutable { return ++turns > 10; }).then([this] {
        ASSERT_TRUE(isOpen() && ok().isEnabled());
        EXPECT_EQ(offered(), folder.file("b9/inside"));
        type(folder.file("b10"));
        press(path(), Qt::Key_Return);
    });
    EXPECT_EQ(run(), folder.file("b10"));
    answerAgain(); // whatever became of it
}

TEST_F(RealFolderPicker, FoldersComeAndGoMeanwhile) {
    browser.InitialDir = folder.file("b9");
    const auto name = [this](const QString& text) {
        untilDialog<QInputDialog>().then([text] {
            dialog<QInputDialog>()->setTextValue(text);
            dialog<QInputDialog>()->accept();
        });
    };
    const auto makeNew = [] { in<QPushButton>("newFolder").click(); };
    untilChosen(folder.file("b9"));
    for (const char* bad : {"inside", "inside/x", "..", "/tmp"}) {
        user.then(makeNew);
        name(bad);
        acceptMessage(); // that refuses it
    }
    user.then(makeNew);
    name("n\u00E9w one");
    untilChosen(folder.file("b9/n\u00E9w one")).then([this] {
        EXPECT_TRUE(std::filesystem::is_directory(folder.file("b9/n\u00E9w one")));
        std::filesystem::remove(folder.file("b9/n\u00E9w one"));
        make({"b9/later"});
        press(tree(), Qt::Key_Left, 2);
        press(tree(), Qt::Key_Right);
    });
    untilRows("inside|later").then([this] {
        std::filesystem::remove_all(folder.file("b9"));
        ok().click();
    });
    EXPECT_EQ(run(), "");
}

} // namespace
} // namespace pelrath::test

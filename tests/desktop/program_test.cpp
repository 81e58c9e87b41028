#include "support/temporary_folder.hpp"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <csignal>

namespace pelrath::test {
namespace {

/// A process of the program in a folder of its own, not run for the first time.
struct Program {
    /// The words of the shell in front of the program's path and behind it.
    explicit Program(const QString& how, const QString& words = {}) {
        const QString path = QString::fromStdString(folder.file("pelrath"));
        EXPECT_TRUE(QFile::copy(PELRATH_PROGRAM, path));
        (void)folder.write("Pelrath.ini", "[Setup]\nfirsttimedone=True\n");
        // A graphics driver that is unloaded in the end cannot be left out of a leak report.
        process.start("/bin/sh",
                      {"-c", "export ASAN_OPTIONS=detect_leaks=0; " + how + " " + path + " " + words});
        EXPECT_TRUE(QTest::qWaitFor([this] { return listens(SIGTERM); }, 20000));
    }
    [[nodiscard]] bool listens(int signal) const {
        QFile status{QString{"/proc/%1/status"}.arg(process.processId())};
        (void)status.open(QFile::ReadOnly);
        const QByteArray text = status.readAll();
        const QByteArray caught = text.mid(text.indexOf("SigCgt:") + 7, 17).trimmed();
        return (caught.toULongLong(nullptr, 16) >> static_cast<unsigned>(signal - 1) & 1U) != 0;
    }

    TemporaryFolder folder;
    QProcess process;
};

TEST(ProgramTest, RunsWithoutAPictureAndClosesOnASignalAsItsUserWouldCloseIt) {
    // The shell's words, the signal, whether the settings are saved.
    const std::tuple<const char*, int, bool> cases[] = {
        {"exec", SIGTERM, true},
        {"exec", SIGINT, true},
        {"exec", SIGHUP, true},
        {"ulimit -f 0; exec", SIGTERM, false}, // no file can be written
        {"exec env QT_XCB_GL_INTEGRATION=none", SIGTERM, true},
        {"exec env QT_QPA_PLATFORM=offscreen", SIGTERM, true},
        {"exec env QT_QPA_PLATFORM=minimal", SIGTERM, true}};
    for (const auto& [how, signal, saves] : cases) {
        SCOPED_TRACE(how);
        Program program{how};
        EXPECT_FALSE(program.process.waitForFinished(1000)); // shows its window, and perhaps a message
        kill(static_cast<pid_t>(program.process.processId()), signal);
        EXPECT_TRUE(program.process.waitForFinished());
        EXPECT_EQ(program.process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.process.exitCode(), 0);
        EXPECT_EQ(program.folder.read("Pelrath.ini").find("MainTop=") != std::string::npos, saves);
    }
}

TEST(ProgramTest, AnswersToItsWordsWithoutADisplayAndTellsADesktopsUserInTheWindow) {
    // The shell's words in front and behind, the exit code, and what is printed, an error as well.
    const std::tuple<const char*, const char*, int, const char*> cases[] = {
        {"env -u DISPLAY", "--version", 0, "Pelrath 1.0-1\n"},
        {"env -u DISPLAY", "--help >/dev/full", 1, ""},
        {"env -u DISPLAY", "/no/such 2>&1", 2, "pelrath: No such file: /no/such\n"}};
    for (const auto& [before, behind, code, printed] : cases) {
        QProcess program;
        program.start("/bin/sh", {"-c", QString{"%1 %2 %3"}.arg(before, PELRATH_PROGRAM, behind)});
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), code) << behind;
        EXPECT_EQ(program.readAllStandardOutput().toStdString(), printed);
    }
    Program told{"exec env DESKTOP_STARTUP_ID=x", "/no/such"};
    EXPECT_FALSE(told.process.waitForFinished(1000));
    told.process.terminate();
    EXPECT_TRUE(told.process.waitForFinished());
    EXPECT_EQ(told.process.exitCode(), 0);
}

} // namespace
} // namespace pelrath::test

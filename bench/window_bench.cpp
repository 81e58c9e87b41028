#include "desktop/application.hpp"
#include "desktop/list_box_view.hpp"
#include "large_archive.hpp"
#include "user_script.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <optional>
#include <vector>

#include <sys/resource.h>

// Times what the user waits for in the real window, and what the window costs while it rests. Prints a line
// a figure; judges nothing.

namespace {

using namespace pelrath;
using pelrath::tour::UserScript;

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// Tells when a new picture of the viewport is on the screen.
class PaintWatch : public QObject {
public:
    PaintWatch(desktop::ViewportWidget& viewport, std::function<void()> shown)
        : viewport_(viewport), shown_(std::move(shown)) {
        viewport_.installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        // What is painted is on the screen when the next event comes.
        if (event->type() == QEvent::Paint &&
            viewport_.pictures() != std::exchange(seen_, viewport_.pictures()))
            QMetaObject::invokeMethod(this, shown_, Qt::QueuedConnection);
        return false;
    }

private:
    desktop::ViewportWidget& viewport_;
    std::function<void()> shown_;
    std::uint64_t seen_ = 0;
};

class Measurement {
public:
    explicit Measurement(std::string folder) : folder_(std::move(folder)) {}

    void add(const std::string& name, const bench::LargeArchive& archive) {
        const std::string path = folder_ + "/" + name + ".cdds";
        archive.write(path);
        user_
            .then([this, path] {
                program_->session.archivePath = path;
                program_->main.dynImage.setVisible(true);
                wait("open " + std::filesystem::path{path}.filename().string(),
                     [this] { program_->main.cmdReadCDDS.press(); });
            })
            .until("the picture", [this] { return painted_; })
            .then([this] { report(); });
    }
    void addChoices(int count) {
        for (int i = 0; i < count; ++i) {
            user_
                .then([this, i] {
                    wait("choose 2048 x 2048",
                         [this, i] { program_->main.Output[TexturePane].setSelected(i % 2 + 1, true); });
                })
                .until("the picture", [this] { return painted_; })
                .then([this] { report(); });
        }
    }
    // A drag that never rests, back and forth; how it is looked at is what the commands before it say.
    void addPanning(const char* how, std::vector<LookCommand> commands) {
        user_
            .then([this, commands = std::move(commands)] {
                program_->main.Output[TexturePane].setSelected(0, true);
                program_->main.Output[TexturePane].setSelected(1, true);
                for (const LookCommand command : commands) {
                    program_->main.look().perform(command);
                }
                frames_ = 0;
                panning_ = true;
                restStart_ = processorSeconds();
                rest_.start();
                pan();
            })
            .until("the end of the drag", [this] { return rest_.elapsed() > 3000; })
            .then([this, how] {
                panning_ = false;
                const double seconds = static_cast<double>(rest_.elapsed()) / 1e3;
                std::cout << "panning 2048 x 2048 " << how << ": " << std::fixed << std::setprecision(1)
                          << frames_ / seconds << " frames a second, "
                          << (processorSeconds() - restStart_) * 1e3 / std::max(frames_, 1)
                          << " ms of processor time each\n";
            });
    }
    void addLevels(int count) {
        user_.then([this] { program_->main.Output[TexturePane].setSelected(2, true); });
        for (int i = 0; i < count; ++i) {
            user_
                .then([this] {
                    wait("next level of 2048 x 2048",
                         [this] { program_->main.look().perform(LookCommand::SmallerLevel); });
                })
                .until("the picture", [this] { return painted_; })
                .then([this] { report(); });
        }
    }
    void addPause(qint64 milliseconds) {
        user_.then([this] { rest_.start(); }).until("the end of the pause", [this, milliseconds] {
            return rest_.elapsed() > milliseconds;
        });
    }
    void addRest() {
        user_
            .then([this] {
                restStart_ = processorSeconds();
                rest_.start();
            })
            .until("the end of the rest", [this] { return rest_.elapsed() > 5000; })
            .then([this] {
                std::cout << "5 s at rest, display on: " << std::fixed << std::setprecision(1)
                          << (processorSeconds() - restStart_) * 1e3 << " ms of processor time\n";
            });
    }

    void run() {
        user_.then([this] {
            std::cout << "peak memory: " << peakMegabytes() << " MB\n";
            program_->window.close();
        });
        user_.onGivingUp = [this] {
            std::cout << "waited in vain for " << user_.missed().toStdString() << '\n';
            program_->window.close();
        };
        program_.emplace();
        program_->session.programFolder = folder_;
        std::ofstream{folder_ + "/Pelrath.ini"} << "[Setup]\nfirsttimedone=True\n"; // not the first run
        const PaintWatch watch{*program_->window.findChild<desktop::ViewportWidget*>("viewport"), [this] {
                                   if (panning_) pan();
                                   if (!std::exchange(waiting_, false)) return;
                                   painted_ = true;
                                   taken_ = clock_.nsecsElapsed();
                                   worked_ = processorSeconds() - workStart_;
                               }};
        program_->start();
        user_.start();
        QApplication::exec();
    }
    UserScript& user() { return user_; }
    [[nodiscard]] bool running() const { return program_->session.viewer.Running; }

private:
    void wait(const std::string& what, const std::function<void()>& act) {
        what_ = what;
        painted_ = false;
        workStart_ = processorSeconds();
        clock_.start();
        program_->refresh.deliver(act);
        reaction_ = clock_.nsecsElapsed();
        waiting_ = true; // what is shown while archives are read is none of the new picture
    }
    void pan() {
        ++frames_;
        const double by = frames_ / 20 % 2 == 0 ? -5 : 5;
        program_->refresh.deliver([this, by] { program_->main.look().panBy(by, by); });
    }
    void report() {
        std::cout << what_ << ": " << std::fixed << std::setprecision(1) << static_cast<double>(taken_) / 1e6
                  << " ms until it is on the screen, of which the reaction took "
                  << static_cast<double>(reaction_) / 1e6 << " ms; " << worked_ * 1e3
                  << " ms of processor time\n";
    }

    std::string folder_;
    std::optional<desktop::Application> program_;
    UserScript user_;
    QElapsedTimer clock_;
    QElapsedTimer rest_;
    double restStart_ = 0;
    double workStart_ = 0;
    double worked_ = 0;
    std::string what_;
    bool waiting_ = false;
    bool painted_ = false;
    bool panning_ = false;
    int frames_ = 0;
    qint64 reaction_ = 0;
    qint64 taken_ = 0;
};

} // namespace

int main(int argc, char* argv[]) {
    pelrath::desktop::Application::prepareGraphics();
    const QApplication qt{argc, argv};
    const std::string folder = (std::filesystem::temp_directory_path() / "pelrath-window-bench").string();
    std::filesystem::create_directories(folder);
    {
        Measurement measurement{folder};
        measurement.user().until("the window", [&] { return measurement.running(); });
        // What was written just now could change unseen, and is read twice; archives lie there for years.
        measurement.addPause(3000);
        measurement.add("0C-32767x1", {false, 32767, 1, 4});
        measurement.add("cdds-32767x1", {true, 32767, 1, 4});
        measurement.add("0C-3640x9", {false, 3640, 9});
        measurement.add("cdds-3640x9", {true, 3640, 9});
        measurement.add("large", {true, 3, 12, 2048, 3});
        measurement.addChoices(12);
        measurement.addLevels(4);
        using enum pelrath::LookCommand;
        measurement.addPanning("at 1:1", {ActualSize});
        measurement.addPanning("at 8:1", {ActualSize, ZoomIn, ZoomIn, ZoomIn, ZoomIn, ZoomIn, ZoomIn});
        measurement.addPanning("at 3:8, averaged", {Averaged, ZoomIn});
        measurement.addPanning("at 1:1, two by two", {Tiled, ActualSize});
        measurement.addRest();
        measurement.run();
    }
    std::filesystem::remove_all(folder);
    return 0;
}

#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

namespace pelrath::desktop {

/// Keeps one widget looking like its control; owned by the widget.
class Binding : public QObject {
public:
    Binding(QObject* view, std::function<void()> push) : QObject(view), push_(std::move(push)) {}

    void push() {
        queued = false;
        push_();
    }
    bool queued = false;

private:
    std::function<void()> push_;
};

/// The way between controls and widgets: what the controls changed reaches the widgets together, before
/// anything is painted and after every event of the user's.
class Refresh : public QObject {
public:
    using Report = std::function<void(const std::string& text)>;

    /// `report` tells the user of a failure that no reaction handled.
    explicit Refresh(Report report) : report_(std::move(report)) {}

    /// Pushes the binding at the next flush.
    void later(Binding& binding);
    void flush();

    /// Runs the reactions to an event of the user's and shows what they changed.
    void deliver(const std::function<void()>& reaction);

    /// True while a reaction waits for something inside it: a message box, a dialog, the events during a
    /// read. What would not return before long, as the render loop, must not be started then.
    [[nodiscard]] bool waitingInside() const { return waits_ > 0; }

    class Wait {
    public:
        explicit Wait(Refresh& refresh) : refresh_(refresh) { ++refresh_.waits_; }
        ~Wait() { --refresh_.waits_; }
        Wait(const Wait&) = delete;
        Wait& operator=(const Wait&) = delete;

    private:
        Refresh& refresh_;
    };

private:
    std::vector<QPointer<Binding>> waiting_;
    int waits_ = 0;
    Report report_;
};

} // namespace pelrath::desktop

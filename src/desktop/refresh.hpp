#pragma once

#include "desktop/gate.hpp"

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

namespace pelrath::desktop {

/// Keeps one widget looking like its control; owned by the widget.
class Binding : public QObject {
    Q_OBJECT
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

    /// Runs the reactions to what the user did to `view` and shows what they changed. False, and nothing has
    /// run, where the gate does not admit it; the widgets of that window then become again what their
    /// controls are.
    bool act(const QWidget& view, const std::function<void()>& reaction);
    /// The same for a command, which may take its time: what the user does meanwhile is dropped.
    bool operate(const QWidget& view, const std::function<void()>& command);
    /// Runs the reactions to something else than the user's doing, and shows what they changed.
    void deliver(const std::function<void()>& reaction);

    [[nodiscard]] Gate& gate() { return gate_; }

private:
    std::vector<QPointer<Binding>> waiting_;
    Report report_;
    Gate gate_;
};

} // namespace pelrath::desktop

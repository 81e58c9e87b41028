#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

class QAbstractButton;
class QDialog;
class QKeyEvent;
class QWidget;

namespace pelrath::desktop {

/// Tells a key that is held down from one that is pressed again.
class HeldKey {
public:
    void follow(const QKeyEvent& key);
    [[nodiscard]] bool repeats() const { return repeats_; }

private:
    int released_ = 0;
    quint64 releasedAt_ = 0; ///< milliseconds; 0: never
    bool repeats_ = false;
};

/// Decides what of the user's doing may reach a reaction: what is done in the window whose turn it is, while
/// no reaction runs, before the end. Everything else is dropped and never queued: input that arrives while a
/// reaction lets events run does not even reach its widget, nor what comes before a dialog could be seen. A
/// key held down gives its command once.
class Gate : public QObject {
public:
    Gate();

    /// A reaction runs for as long as this lives.
    class Reaction {
    public:
        explicit Reaction(Gate& gate) : gate_(gate), before_(gate.top().reacting) {
            if (!before_) gate_.stopWished_ = false;
            set(true);
        }
        ~Reaction() {
            set(before_);
            gate_.tellWaiting();
        }
        Reaction(const Reaction&) = delete;
        Reaction& operator=(const Reaction&) = delete;

    private:
        void set(bool reacting) { gate_.top().reacting = reacting; }
        Gate& gate_;
        bool before_;
    };

    /// The reaction that runs waits for the user, in `dialog` alone or, where there is none, as in the render
    /// loop, in every window.
    class Turn {
    public:
        Turn(Gate& gate, QDialog* dialog);
        ~Turn() { gate_.turns_.pop_back(); }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

    private:
        Gate& gate_;
    };

    [[nodiscard]] bool admits(const QWidget& view) const;
    /// No reaction runs but those that wait.
    [[nodiscard]] bool isQuiet() const { return !shut_ && !turns_.back().reacting; }
    /// Quiet, and no dialog is open.
    [[nodiscard]] bool isIdle() const;

    /// Runs `call` from the event loop the next time that it is quiet, unless `who` is gone by then.
    void whenQuiet(QObject& who, std::function<void()> call);
    /// Gives the innermost dialog up, as closing it by its frame does. Only while it is quiet.
    void dismissDialog();
    /// While a reaction runs, a press on this, or its mnemonic, wishes that it stop. It must live as long as
    /// the gate is asked.
    void stopsBy(const QAbstractButton& button) { stoppers_.push_back(&button); }
    void wishStop() { stopWished_ = true; }
    /// The reaction that runs is to stop, if it can: the user has pressed Escape, or wants the program to
    /// end.
    [[nodiscard]] bool isStopWished() const { return stopWished_ || !waiting_.empty(); }

    /// Drops what the user did while the reaction that runs did not look at events.
    void dropWaiting();
    /// For good: the program has ended.
    void shut() { shut_ = true; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Level {
        QPointer<QDialog> dialog;
        bool reacting = false;
        bool seen = true; ///< the dialog has been painted
    };
    Level& top() { return turns_.back(); }
    void tellWaiting();
    [[nodiscard]] bool wishesStop(const QObject& object, const QEvent& event) const;

    std::vector<Level> turns_{Level{}};
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
    HeldKey key_;
    std::vector<const QAbstractButton*> stoppers_;
    bool stopWished_ = false;
    bool shut_ = false;
};

} // namespace pelrath::desktop

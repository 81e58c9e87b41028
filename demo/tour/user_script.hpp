#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace pelrath::tour {

/// What a user does to a running program, step by step. The steps run from the event loop, whichever one is
/// innermost at the time: the render loop, a dialog's, the program's own.
class UserScript : public QObject {
public:
    /// Does something. A step may open a dialog; the steps behind it then work on the dialog.
    UserScript& then(std::function<void()> step);
    /// Goes on when the condition holds; gives the script up when it does not for ten seconds.
    UserScript& until(const QString& what, std::function<bool()> condition);

    /// Starts with the next turn of the event loop.
    void start();

    [[nodiscard]] bool finished() const { return next_ == steps_.size(); }
    /// What was waited for in vain; empty when nothing was.
    [[nodiscard]] const QString& missed() const { return missed_; }

    /// Called when the script gives up, to bring the program to an end.
    std::function<void()> onGivingUp;

private:
    struct Step {
        QString what;
        std::function<bool()> act; // true: done
    };
    void turn();

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int turns_ = 0;
    QString missed_;
};

} // namespace pelrath::tour

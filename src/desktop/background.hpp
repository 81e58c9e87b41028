#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace pelrath::desktop {

/// Work that may wait, for a folder that does not answer or for another program's end. Each piece has a
/// thread of its own, so that it holds up no other, and nobody waits for its end.
class Background : public QObject {
public:
    /// Runs a function on the thread that this object belongs to, in the order of posting. What comes after
    /// this object's end is dropped.
    using Post = std::function<void(std::function<void()>)>;

    Background();
    ~Background() override;

    /// `work` must hold nothing of this thread's by reference.
    void run(std::function<void(const Post&)> work);

private:
    struct Way;
    std::shared_ptr<Way> way_;
};

} // namespace pelrath::desktop

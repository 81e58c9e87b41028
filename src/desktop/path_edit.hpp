#pragma once

#include "desktop/background.hpp"

#include <QLineEdit>
#include <QStringListModel>

#include <functional>
#include <optional>

class QCompleter;

namespace pelrath::desktop {

/// A box for the path of a folder, which offers what is on the disk while one types.
class PathEdit : public QLineEdit {
public:
    explicit PathEdit(QWidget* parent);

    /// The folder in which a typed path begins that does not begin at the root; empty: the user's home.
    void setBase(const QString& folder);
    /// What the text means as a path: "~" is the user's home. Not yet a full path.
    [[nodiscard]] QString meaning() const { return meaningOf(text()); }
    [[nodiscard]] const QString& base() const { return base_; }

    /// The user pressed Enter while completions were offered and did not take one.
    std::function<void()> confirmed;

private:
    [[nodiscard]] static QString meaningOf(const QString& typed);
    void lookUp();
    void offer();

    QString base_;
    /// What was typed up to the last separator when completions were looked up; nothing for another base.
    std::optional<QString> listed_;
    int lookUps_ = 0;
    QStringListModel* found_;
    QCompleter* completer_;
    Background background_;
};

} // namespace pelrath::desktop

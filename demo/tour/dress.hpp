#pragma once

#include <QString>

namespace pelrath::tour {

/// Gives the program the colours and the font that a desktop would: "dark" or "high-contrast", any other
/// name the toolkit's own; so many points, 0: as it is. Behind the application's making.
void dress(const QString& theme, double points);

} // namespace pelrath::tour

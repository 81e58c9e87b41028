#pragma once

#include "mainwindow/viewer/look.hpp"

#include <sstream>
#include <string>

namespace pelrath::test {

/// Does what the words say, each followed by its numbers.
inline void act(Look& look, const char* acts) {
    std::istringstream words{acts};
    const auto number = [&words] {
        double value = 0;
        words >> value;
        return value;
    };
    for (std::string word; words >> word;) {
        if (word == "averaged") look.picks.averaged = true;
        if (word == "chequered") look.picks.chequered = true;
        if (word == "tiled") look.arrange(Arrangement::Tiled);
        if (word == "chain") look.arrange(Arrangement::AllLevels);
        if (word == "one") look.arrange(Arrangement::OneLevel);
        if (word == "fit") look.fit();
        if (word == "level") look.stepLevel(static_cast<int>(number()));
        if (word == "channel") look.picks.channel = static_cast<Channel>(number());
        if (word != "zoom" && word != "steps" && word != "pan" && word != "mouse" && word != "key" &&
            word != "room")
            continue;
        const double a = number(), b = number();
        if (word == "zoom") look.zoomTo(a, {b, number()});
        if (word == "steps") look.zoomBy(static_cast<int>(a), {b, number()});
        if (word == "pan") look.panBy(a, b);
        if (word == "mouse") look.pointAt({a, b});
        if (word == "key") look.movePointed(static_cast<int>(a), static_cast<int>(b));
        if (word == "room") look.setRoom({static_cast<int>(a), static_cast<int>(a), b, number()});
    }
}

} // namespace pelrath::test

#pragma once

namespace pelrath {

/// One language of the first-run terms.
struct DisclaimerTexts {
    const char* accept;
    const char* refuse;
    const char* letter;
    const char* commitment;
};

extern const DisclaimerTexts englishDisclaimer;
extern const DisclaimerTexts frenchDisclaimer;

} // namespace pelrath

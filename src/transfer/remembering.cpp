#include "transfer/remembering.hpp"

namespace pelrath {

Remembering::Remembering(TransferControls& controls, Session& session, const TransferState& state)
    : c_(controls), session_(session), state_(state), connection_(c_.chkRemember.click.connect([this] {
          if (!c_.chkRemember.checked()) words().clear();
      })) {}

std::string& Remembering::words() {
    RememberedChoices& remembered = session_.settings.remembered;
    return session_.mode == DialogMode::Extraction ? remembered.extraction : remembered.insertion;
}

void Remembering::begin(const std::optional<TransferChoices>& wanted) {
    const std::string& remembered = words();
    c_.chkRemember.setChecked(!remembered.empty());
    if (wanted) {
        choose(c_, session_, *wanted);
    } else if (!remembered.empty()) {
        choose(c_, session_, choicesFromWords(remembered));
    }
}

void Remembering::used() {
    if (c_.chkRemember.checked()) words() = wordsOf(choicesOf(c_, state_), session_.mode);
}

} // namespace pelrath

// Reads lines into a store of their own.
#include "tools/lsp/trial.h"

namespace tool::lsp {

void ttrial::filed(const optcore::tmessage& message) {
  using optcore::tmsgkind;
  if (message.kind != tmsgkind::fileenter && message.kind != tmsgkind::fileleave) fclean = false;
}

bool ttrial::isclean(const std::string& line, bool eolonly) {
  if (!fstore) {
    fstore.emplace();
    fdefinition.reading.readdefinitionagain(*fstore);
    fstore->setobserver(this);
  }
  fclean = true;
  fstore->opteolonlyset(eolonly);
  fstore->optreadfromstr(line);
  return fclean;
}

}  // namespace tool::lsp

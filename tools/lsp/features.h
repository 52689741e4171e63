// The requests that the server answers. Each answer has a file of its own, with the name of its function; most
// requests have one for option files and one for definitions. To add a feature, declare its answers below, say
// in announcements.cpp what the server tells the client of it, and add a line to the table in features.cpp.
#pragma once

#include <span>
#include <string_view>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

struct tfeature {
  std::string_view method;
  tanswer (*answer)(const trequest& request);
  // Adds to the capabilities of the server; null if another feature does.
  void (*announce)(json& capabilities, const tclient& client);
};

std::span<const tfeature> features();

// ---- answers in option files

tanswer optioncompletion(const trequest& request);
// Adds the documentation to an item of a completion.
tanswer resolvecompletion(const trequest& request);
tanswer optionhover(const trequest& request);
tanswer optiontarget(const trequest& request);
tanswer optionreferences(const trequest& request);
tanswer optionhighlights(const trequest& request);
tanswer optionsymbols(const trequest& request);
tanswer optioncodeactions(const trequest& request);
tanswer optionformatting(const trequest& request);  // of the whole or of a range
tanswer optioninlayhints(const trequest& request);

// ---- answers in definitions

tanswer definitionactions(const trequest& request);
tanswer definitioncompletion(const trequest& request);
tanswer definitionformatting(const trequest& request);
tanswer definitionhover(const trequest& request);
tanswer definitiontarget(const trequest& request);
tanswer definitionreferences(const trequest& request);
tanswer definitionhighlights(const trequest& request);
tanswer definitionsymbols(const trequest& request);
tanswer signaturehelp(const trequest& request);

// ---- answers in both

tanswer preparerename(const trequest& request);
tanswer rename(const trequest& request);
tanswer workspacesymbols(const trequest& request);

// ---- what the server tells of itself (announcements.cpp)

void announcecompletion(json& capabilities, const tclient& client);
void announcehover(json& capabilities, const tclient& client);
void announcetargets(json& capabilities, const tclient& client);
void announcereferences(json& capabilities, const tclient& client);
void announcehighlights(json& capabilities, const tclient& client);
void announcesymbols(json& capabilities, const tclient& client);
void announcecodeactions(json& capabilities, const tclient& client);
void announceformatting(json& capabilities, const tclient& client);
void announceinlayhints(json& capabilities, const tclient& client);
void announcesignatures(json& capabilities, const tclient& client);
void announcerename(json& capabilities, const tclient& client);
void announceworkspacesymbols(json& capabilities, const tclient& client);

}  // namespace tool::lsp

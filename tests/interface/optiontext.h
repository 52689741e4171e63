// What the reader tests compare after a piece of option text was read: the messages without the notes on entering
// and leaving a source, and the options that hold a value of their own.
#pragma once

#include <string>

#include "support/handle.h"

namespace testsupport {

enum class treading { eolonly, normal };

// The text of one message per line, no line feed after the last.
inline std::string problems(thandle& handle) {
  std::string result;
  for (std::int32_t nr = 1; nr <= optmessagecount(handle.get()); ++nr) {
    std::string text;
    std::int32_t kind = -1;
    handle.getmessage(nr, text, kind);
    if (kind == optMsgFileEnter || kind == optMsgFileLeave) continue;
    const std::string directory = handle.directory().path("");
    for (std::size_t at = text.find(directory); at != std::string::npos; at = text.find(directory))
      text.erase(at, directory.size());
    result += (result.empty() ? "" : "\n") + text;
  }
  return result;
}

// "name=value" for each option with a defined value, in definition order: "a=1 two=3,- l=[x|y]". A second value
// stands after a comma; "-" is a value that was not set.
inline std::string settings(thandle& handle) {
  std::string result;
  for (std::int32_t nr = 1; nr <= optcount(handle.get()); ++nr) {
    std::int32_t defined = 0, recent = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0;
    optgetinfonr(handle.get(), nr, &defined, &recent, &refnr, &datatype, &opttype, &subtype);
    if (defined == 0) continue;
    std::string name, text;
    handle.gethelpnr(nr, name, text);
    result += (result.empty() ? "" : " ") + name + '=';
    if (opttype == optTypeStrList) {
      result += '[';
      for (int index = 1; handle.readfromliststr(name, index, text) == 1; ++index)
        result += (index > 1 ? "|" : "") + text;
      result += ']';
      continue;
    }
    handle.getstrnr(nr, text);
    result += (defined & 1) != 0 ? text : "-";
    if (subtype != optsub2Values) continue;
    handle.getstr2nr(nr, text);
    result += ',' + ((defined & 2) != 0 ? text : "-");
  }
  return result;
}

}  // namespace testsupport

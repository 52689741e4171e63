// The floor: the same work as the library's, by hand and with nothing else. It reads a whole file in one
// call, splits lines with memchr, finds names in an open-addressing table, reads numbers with from_chars,
// checks ranges and stores values. All texts are in one block. Names are compared byte for byte, faults are
// only counted, and only the contents of the workloads are understood.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

struct tsample;

class tfloor {
 public:
  union tnumber {
    std::int64_t integer;
    double real;
  };
  struct ttext {
    std::uint32_t at = 0, size = 0;
  };
  struct toption {
    tnumber value{}, low{}, high{};
    ttext name, text;  // text: the value of a string or enumstr
    std::uint32_t items = 0, room = 0;
    char type = 'i';
    tnumber defaultvalue{};
    ttext helptext, defaulttext;
  };

  // Registers the options of a definition file, whose text stays in memory, or of a list that is in memory
  // already. Returns false when the file cannot be read or is not one of the workloads.
  bool readdefinition(const std::string& path);
  void define(const std::vector<tsample>& samples);

  // Returns the number of faulty lines, or -1 when the file cannot be read.
  std::int64_t readparameters(const std::string& path);

  const toption* find(std::string_view name) const {
    const std::uint32_t number = numberof(name);
    return number == 0 ? nullptr : &foptions[number - 1];
  }
  std::string_view view(ttext text) const { return {fblock.data() + text.at, text.size}; }
  // Writes the value as a zero-terminated text to a buffer of 256 bytes.
  void valuetext(const toption& option, char* buffer) const;

  std::size_t count() const { return foptions.size(); }
  const toption& at(std::size_t position) const { return foptions[position]; }

 private:
  struct tslot {
    std::uint32_t tag, number;
  };
  struct tdefinition;

  std::uint32_t numberof(std::string_view name) const;  // from 1, 0 for none
  ttext keep(std::string_view text);
  void settext(toption& option, std::string_view text);
  bool hasitem(const toption& option, std::string_view text) const;
  bool set(toption& option, std::string_view text);
  bool defineline(tdefinition& reading, const char* line, const char* end);
  void index();
  std::int64_t readlines(const char* begin, const char* end);

  std::vector<toption> foptions;
  std::string fblock;
  std::vector<tslot> fslots;
  std::uint32_t fmask = 0;
};

}  // namespace bench

// The floor, see floor.h.
#include "floor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <memory>

#include "workload.h"

namespace bench {

namespace {

// Reads the whole file in one call into the buffer that room(size) returns, and adds a line feed.
template <class troom>
bool readall(const std::string& path, troom room) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  struct stat status {};
  bool good = ::fstat(file, &status) == 0;
  if (good) {
    const auto size = static_cast<std::size_t>(status.st_size);
    char* data = room(size);
    good = ::read(file, data, size) == status.st_size;
    data[size] = '\n';
  }
  ::close(file);
  return good;
}

std::uint64_t load(const char* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

std::uint64_t mix(std::uint64_t a, std::uint64_t b) {
  __extension__ using twide = unsigned __int128;
  const twide product = static_cast<twide>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

std::uint64_t hash(std::string_view text) {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15ULL;
  const char* bytes = text.data();
  const std::size_t size = text.size();
  std::uint64_t sum = size * factor;
  if (size >= 8) {
    for (std::size_t i = 0; i + 8 < size; i += 8) sum = mix(sum ^ load(bytes + i), factor);
    return mix(sum ^ load(bytes + size - 8), factor);
  }
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, size);
  return mix(sum ^ word, factor);
}

template <class tvalue>
inline bool number(std::string_view text, tvalue& value) {
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  return result.ec == std::errc() && result.ptr == end;
}

bool numberoftype(char type, std::string_view text, tfloor::tnumber& value) {
  return type == 'd' ? number(text, value.real) : number(text, value.integer);
}

inline const char* find(const char* begin, const char* end, char character) {
  const void* found = std::memchr(begin, character, static_cast<std::size_t>(end - begin));
  return found != nullptr ? static_cast<const char*>(found) : end;
}

std::string_view quotedword(const char*& position, const char* end) {
  const char* begin = position + 1;
  const char* last = find(begin, end, '"');
  position = last < end ? last + 1 : end;
  return {begin, static_cast<std::size_t>(last - begin)};
}

// Returns the next word of a line, in double quotes or up to a blank. The line feed at the end of the line
// also ends it.
inline std::string_view word(const char*& position, const char* end) {
  while (*position == ' ') ++position;
  if (*position == '"') return quotedword(position, end);
  const char* begin = position;
  position = find(begin, end, ' ');
  return {begin, static_cast<std::size_t>(position - begin)};
}

bool isblank(char character) { return character == ' ' || character == '\t'; }

}  // namespace

// ---- texts and lookup

tfloor::ttext tfloor::keep(std::string_view text) {
  const ttext kept{static_cast<std::uint32_t>(fblock.size()), static_cast<std::uint32_t>(text.size())};
  fblock.append(text);
  return kept;
}

// The default stays in its place. A value has a place of its own, and moves when it becomes too long for it.
void tfloor::settext(toption& option, std::string_view text) {
  const auto size = static_cast<std::uint32_t>(text.size());
  if (size > option.room) {
    option.room = size + size / 2;
    option.text.at = static_cast<std::uint32_t>(fblock.size());
    fblock.resize(fblock.size() + option.room);
  }
  std::memcpy(fblock.data() + option.text.at, text.data(), size);
  option.text.size = size;
}

// Items: a length byte and the text, one after the other, and a zero byte.
bool tfloor::hasitem(const toption& option, std::string_view text) const {
  for (const char* item = fblock.data() + option.items; *item != 0; item += 1 + *item)
    if (static_cast<std::size_t>(*item) == text.size() &&
        std::memcmp(item + 1, text.data(), text.size()) == 0)
      return true;
  return false;
}

void tfloor::index() {
  std::size_t size = 16;
  while (size < 2 * foptions.size()) size *= 2;
  fmask = static_cast<std::uint32_t>(size - 1);
  fslots.assign(size, {0, 0});
  for (std::uint32_t position = 0; position < foptions.size(); ++position) {
    const std::uint64_t code = hash(view(foptions[position].name));
    auto slot = static_cast<std::uint32_t>(code) & fmask;
    while (fslots[slot].number != 0) slot = (slot + 1) & fmask;
    fslots[slot] = {static_cast<std::uint32_t>(code >> 32U), position + 1};
  }
}

std::uint32_t tfloor::numberof(std::string_view name) const {
  const std::uint64_t code = hash(name);
  const auto tag = static_cast<std::uint32_t>(code >> 32U);
  for (auto slot = static_cast<std::uint32_t>(code) & fmask; fslots[slot].number != 0;
       slot = (slot + 1) & fmask) {
    if (fslots[slot].tag != tag) continue;
    const toption& option = foptions[fslots[slot].number - 1];
    if (option.name.size == name.size() &&
        std::memcmp(fblock.data() + option.name.at, name.data(), name.size()) == 0)
      return fslots[slot].number;
  }
  return 0;
}

// ---- definitions

void tfloor::define(const std::vector<tsample>& samples) {
  foptions.reserve(samples.size());
  fblock.reserve(samples.size() * 128);
  for (const tsample& sample : samples) {
    toption option;
    option.type = sample.type;
    if (sample.type != 's' && sample.type != 'e')
      numberoftype(sample.type, sample.defaulttext, option.defaultvalue);
    numberoftype(sample.type, sample.low, option.low);
    numberoftype(sample.type, sample.high, option.high);
    option.value = option.defaultvalue;
    option.name = keep(sample.name);
    option.helptext = keep(sample.helptext);
    if (sample.type == 's' || sample.type == 'e') option.defaulttext = option.text = keep(sample.defaulttext);
    if (sample.type == 'e') {
      option.items = static_cast<std::uint32_t>(fblock.size());
      for (const std::string& item : sample.items)
        fblock.append(1, static_cast<char>(item.size())).append(item);
      fblock.append(1, '\0');
    }
    foptions.push_back(option);
  }
  index();
}

struct tfloor::tdefinition {
  char* base;
  char* item;  // where the next item of the last enumstr goes
  ttext place(std::string_view text) const {
    return {static_cast<std::uint32_t>(text.data() - base), static_cast<std::uint32_t>(text.size())};
  }
};

bool tfloor::readdefinition(const std::string& path) {
  std::size_t size = 0;
  if (!readall(path, [&](std::size_t filesize) {
        size = filesize;
        fblock.reserve(filesize + filesize / 8 + 64);
        fblock.resize(filesize + 1);
        return fblock.data();
      }))
    return false;
  foptions.reserve(size / 100);
  tdefinition reading{fblock.data(), nullptr};
  const char* const end = fblock.data() + size;
  for (const char* line = fblock.data(); line < end;) {
    const char* const lineend = bench::find(line, end + 1, '\n');
    if (line != lineend && !defineline(reading, line, lineend)) return false;
    line = lineend + 1;
  }
  index();
  return true;
}

bool tfloor::defineline(tdefinition& reading, const char* line, const char* end) {
  const char* position = line;
  if (*line == ' ') {
    const std::string_view text = word(position, end);
    if (reading.item == nullptr || text.size() > 127) return false;
    const auto size = static_cast<char>(text.size());
    std::memmove(reading.item + 1, text.data(), text.size());
    *reading.item = size;
    reading.item += 1 + size;
    *reading.item = '\0';
    return true;
  }
  const std::string_view name = word(position, end);
  const std::string_view type = word(position, end);
  if (type == "group") return true;
  toption option;
  option.type = type == "enumstr" ? 'e' : type[0];
  int field = 0;
  bool good = number(word(position, end), field);
  const std::string_view text = word(position, end);
  if (option.type == 'i' || option.type == 'd')
    good = good && numberoftype(option.type, text, option.defaultvalue) &&
           numberoftype(option.type, word(position, end), option.low) &&
           numberoftype(option.type, word(position, end), option.high);
  else if (option.type == 'b')
    good = good && number(text, option.defaultvalue.integer) && option.defaultvalue.integer >> 1 == 0;
  good = good && number(word(position, end), field) && number(word(position, end), field) && position < end;
  if (!good) return false;
  option.value = option.defaultvalue;
  option.name = reading.place(name);
  option.helptext = reading.place({position + 1, static_cast<std::size_t>(end - position - 1)});
  option.defaulttext = option.text = reading.place(text);
  reading.item = nullptr;
  if (option.type == 'e') {
    option.items = static_cast<std::uint32_t>(end + 1 - reading.base);
    reading.item = reading.base + option.items;
  }
  foptions.push_back(option);
  return true;
}

// ---- assignments

bool tfloor::set(toption& option, std::string_view text) {
  switch (option.type) {
    case 'i': {
      std::int64_t value = 0;
      if (!number(text, value) || value < option.low.integer || value > option.high.integer) return false;
      option.value.integer = value;
      return true;
    }
    case 'd': {
      double value = 0;
      if (!number(text, value) || !(value >= option.low.real && value <= option.high.real)) return false;
      option.value.real = value;
      return true;
    }
    case 'b':
      if (text.size() != 1 || (text[0] != '0' && text[0] != '1')) return false;
      option.value.integer = text[0] - '0';
      return true;
    case 'e':
      if (!hasitem(option, text)) return false;
      [[fallthrough]];
    default: settext(option, text); return true;
  }
}

std::int64_t tfloor::readparameters(const std::string& path) {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;
  if (!readall(path, [&](std::size_t filesize) {
        size = filesize;
        data = std::make_unique_for_overwrite<char[]>(filesize + 1);
        return data.get();
      }))
    return -1;
  return readlines(data.get(), data.get() + size);
}

std::int64_t tfloor::readlines(const char* begin, const char* end) {
  std::int64_t faults = 0;
  for (const char* lineend; begin < end; begin = lineend + 1) {
    lineend = bench::find(begin, end + 1, '\n');
    const char* last = lineend;
    while (begin < last && isblank(*begin)) ++begin;
    while (last > begin && (isblank(last[-1]) || last[-1] == '\r')) --last;
    if (begin == last || *begin == '*') continue;
    const char* const blank = bench::find(begin, last, ' ');
    if (blank == last) {
      ++faults;
      continue;
    }
    const char* value = blank + 1;
    while (isblank(*value)) ++value;
    const std::uint32_t option = numberof({begin, static_cast<std::size_t>(blank - begin)});
    if (option == 0 || !set(foptions[option - 1], {value, static_cast<std::size_t>(last - value)})) ++faults;
  }
  return faults;
}

// ---- values

void tfloor::valuetext(const toption& option, char* buffer) const {
  char* end = buffer;
  switch (option.type) {
    case 'i':
    case 'b': end = std::to_chars(buffer, buffer + 255, option.value.integer).ptr; break;
    case 'd': end = std::to_chars(buffer, buffer + 255, option.value.real).ptr; break;
    default:
      std::memcpy(buffer, fblock.data() + option.text.at, option.text.size);
      end = buffer + option.text.size;
  }
  *end = '\0';
}

}  // namespace bench

// Hashes the settings in a form that does not depend on how the files were written.
#include "tools/tracing/fingerprint.h"

#include <nettle/sha2.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "base/numtext.h"
#include "base/textcase.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

class thash {
 public:
  thash() { sha256_init(&fstate); }
  void add(std::string_view text) {
    sha256_update(&fstate, text.size(), reinterpret_cast<const std::uint8_t*>(text.data()));
  }
  // A text of any bytes, which begins with its length.
  void addfield(std::string_view text) {
    add(std::to_string(text.size()));
    add(":");
    add(text);
    add(",");
  }
  std::string hexadecimal() {
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&fstate, digest.size(), digest.data());
    std::string result;
    for (const std::uint8_t byte : digest) result += hexdigits(static_cast<char>(byte));
    return result;
  }

 private:
  sha256_ctx fstate{};
};

std::string lower(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), lowchar);
  return result;
}

std::string valuetext(const toption& option, twhich which) {
  if (const auto* dbl = ifis<tdbloption>(&option))
    return std::string(dbltostrexact(dbl->value(which)).view());
  const tvaluetext text = option.getasstring12(which);
  return option.opttype() == topttype::enumstr ? lower(text.view()) : std::string(text.view());
}

void addoption(thash& hash, const toption& option) {
  hash.addfield(lower(option.name()));
  if (const auto* list = ifis<tstrlistoption>(&option)) {
    for (std::int32_t i = 0; i < list->itemcount(); ++i) hash.addfield(list->item(i));
  } else if (option.subtype() == tsubtype::novalue) {
    hash.addfield(option.defined() != 0 ? "set" : "not set");
  } else {
    hash.addfield(valuetext(option, twhich::first));
    if (option.subtype() == tsubtype::twovalues) hash.addfield(valuetext(option, twhich::second));
  }
  hash.add("\n");
}

// Sorted by name, so the order of the definition does not count; options of the same name keep their order.
void addoptions(thash& hash, const tvksoptions& store) {
  std::vector<std::pair<std::string, const toption*>> options;
  options.reserve(static_cast<std::size_t>(store.getcount()));
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    const toption& option = store.definition().option(i);
    if (option.datatype() != tdatatype::none) options.emplace_back(lower(option.name()), &option);
  }
  std::ranges::stable_sort(options, {}, &std::pair<std::string, const toption*>::first);
  for (const auto& [name, option] : options) {
    hash.add("option ");
    addoption(hash, *option);
  }
}

template <class telements>
void addelements(thash& hash, const telements& elements, bool withoutquotes) {
  hash.addfield(std::to_string(elements.count()));
  for (std::int32_t i = 0; i < elements.count(); ++i) {
    const std::string_view element = elements.get(i);
    hash.addfield(withoutquotes && element != "*" ? element.substr(1, element.size() - 2) : element);
  }
}

void adddotentry(thash& hash, const tvksoptions& store, const tdotobj& entry) {
  hash.add("dot ");
  hash.addfield(entry.name());
  hash.addfield(lower(store.definition().getstrings(entry.optionindex())));
  addelements(hash, entry.indices(), true);
  hash.addfield(dbltostrexact(entry.value()).view());
  hash.add("\n");
}

void addindicator(thash& hash, const tindicatoritem& item) {
  hash.add("indicator ");
  for (const tsymbol& symbol : {item.equation(), item.variable()}) {
    hash.addfield(symbol.name());
    addelements(hash, symbol.elements(), false);
  }
  hash.addfield(std::to_string(item.value()));
  hash.add("\n");
}

}  // namespace

std::string fingerprint(const tvksoptions& store) {
  thash hash;
  hash.add("wexcorin settings 1\n");
  addoptions(hash, store);
  for (std::int32_t i = 0; i < store.dotoptions().count(); ++i)
    adddotentry(hash, store, *store.dotoptions().getobject(i));
  for (std::int32_t i = 0; i < store.indicators().count(); ++i)
    addindicator(hash, *store.indicators().get(i));
  return "sha256:" + hash.hexadecimal();
}

}  // namespace tool

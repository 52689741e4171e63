// Two handles in the same state, one for each text form: a call is made in both forms, and results, numbers
// and texts that come out must agree. Text buffers lie between guard bytes, and what lies behind a text must
// stay as it was.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "fuzz/support/check.h"
#include "fuzz/support/files.h"
#include "wexcorin/wexcorin.h"

namespace fuzzing {

// ---- arguments: each knows what it is in either form; the second of two buffers is the zero-terminated one

// A text argument. A text with a zero byte and one of 255 characters have no zero-terminated form: the call
// is then made in the short form twice. A longer text arrives as the interface says.
class ttextin {
 public:
  explicit ttextin(std::string_view text);
  // A null pointer.
  ttextin() = default;

  bool hasboth() const noexcept { return fhasboth; }
  const optshortstring* asshort(int) const noexcept { return fzero == nullptr ? nullptr : &fshort; }
  const char* aszero() const noexcept { return fzero.get(); }
  void prepare() const {}
  void finish(bool) const {}

 private:
  optshortstring fshort{};
  std::unique_ptr<char[]> fzero;
  bool fhasboth = true;
};

// A text output, or with a text in it argument and output in one buffer.
class ttextresult {
 public:
  ttextresult() = default;
  explicit ttextresult(std::string_view initial) : finitial(initial), fhasinitial(true) {}

  bool hasboth() const noexcept;
  optshortstring* asshort(int form) noexcept {
    return reinterpret_cast<optshortstring*>(fbuffers[static_cast<std::size_t>(form)].data() + guardsize);
  }
  char* aszero() noexcept { return reinterpret_cast<char*>(fbuffers[1].data() + guardsize); }
  void prepare();
  // Checks the buffers after a call; with `both` the second one is of the zero-terminated form.
  void finish(bool both);

  // After a call: the text; empty when the call left the buffer untouched.
  const std::string& text() const noexcept { return ftext; }

 private:
  static constexpr std::size_t guardsize = 8;
  using tbuffer = std::array<unsigned char, guardsize + WEXCORIN_TEXT_SIZE + guardsize>;
  std::string shorttext(std::size_t form) const;
  void checkrest(std::size_t form, std::size_t used) const;

  std::string finitial;
  bool fhasinitial = false;
  std::array<tbuffer, 2> fbuffers;
  std::array<tbuffer, 2> fbefore;
  std::string ftext;
};

// A number output.
template <class tnumber>
class tnumberresult {
 public:
  bool hasboth() const noexcept { return true; }
  tnumber* asshort(int form) noexcept { return &fvalues[static_cast<std::size_t>(form)]; }
  tnumber* aszero() noexcept { return &fvalues[1]; }
  void prepare() { fvalues = {untouched, untouched}; }
  void finish(bool) {
    using tbits = std::conditional_t<sizeof(tnumber) == 8, std::uint64_t, std::uint32_t>;
    FUZZ_CHECK(std::bit_cast<tbits>(fvalues[0]) == std::bit_cast<tbits>(fvalues[1]),
               std::to_string(fvalues[0]) + " and " + std::to_string(fvalues[1]));
  }
  tnumber value() const noexcept { return fvalues[0]; }
  bool isuntouched() const noexcept { return fvalues[0] == untouched; }

 private:
  static constexpr tnumber untouched = -77777;
  std::array<tnumber, 2> fvalues{};
};
using tintresult = tnumberresult<std::int32_t>;
using tdblresult = tnumberresult<double>;

// A number argument is the same in both forms.
template <class targument>
struct targ {
  targument& value;
  bool hasboth() const { return value.hasboth(); }
  auto asshort(int form) const { return value.asshort(form); }
  auto aszero() const { return value.aszero(); }
  void prepare() const { value.prepare(); }
  void finish(bool both) const { value.finish(both); }
};
template <class targument>
requires(std::is_arithmetic_v<std::remove_cv_t<targument>> ||
         std::is_pointer_v<targument>) struct targ<targument> {
  targument value;
  bool hasboth() const { return true; }
  auto asshort(int) const { return value; }
  auto aszero() const { return value; }
  void prepare() const {}
  void finish(bool) const {}
};

// Runs the two calls and compares their results.
template <class tfirst, class tsecond>
auto agreed(tfirst first, tsecond second) {
  tfiles& files = tfiles::get();
  files.allowopens();
  if constexpr (std::is_void_v<decltype(first())>) {
    first();
    files.allowopens();
    second();
  } else {
    const auto result = first();
    files.allowopens();
    const auto other = second();
    FUZZ_CHECK(result == other, std::to_string(result) + " and " + std::to_string(other));
    return result;
  }
}

// A function without handle, in both forms.
template <class tshortcall, class tzerocall, class... targs>
auto callfree(tshortcall shortcall, tzerocall zerocall, targs&&... arguments) {
  const auto run = [&](auto... args) {
    const bool both = (args.hasboth() && ...);
    (args.prepare(), ...);
    const auto finish = [&] { (args.finish(both), ...); };
    const auto first = [&] { return shortcall(args.asshort(0)...); };
    const auto second = [&] { return both ? zerocall(args.aszero()...) : shortcall(args.asshort(1)...); };
    if constexpr (std::is_void_v<decltype(first())>) {
      agreed(first, second);
      finish();
    } else {
      const auto result = agreed(first, second);
      finish();
      return result;
    }
  };
  return run(targ<std::remove_reference_t<targs>>{arguments}...);
}

// The handles as the first argument of a call.
struct thandles {
  std::array<tvksoptions*, 2> handles{};
  bool hasboth() const noexcept { return true; }
  tvksoptions* asshort(int form) const noexcept { return handles[static_cast<std::size_t>(form)]; }
  tvksoptions* aszero() const noexcept { return handles[1]; }
  void prepare() const {}
  void finish(bool) const {}
};

class tpair {
 public:
  tpair();
  tpair(const tpair&) = delete;
  tpair& operator=(const tpair&) = delete;
  ~tpair();

  tvksoptions* handle(int form) const noexcept { return fhandles.asshort(form); }

  // A function in both forms, or one that has only one, on both handles.
  template <class tshortcall, class tzerocall, class... targs>
  auto call(tshortcall shortcall, tzerocall zerocall, targs&&... arguments) {
    return callfree(shortcall, zerocall, fhandles, arguments...);
  }
  template <class tcall, class... targs>
  auto callone(tcall onlycall, targs&&... arguments) {
    return callfree(onlycall, onlycall, fhandles, arguments...);
  }

  // ---- what a target reads; the files are those of tfiles
  std::int32_t readdefinition(std::string_view filename);
  std::int32_t readparameters(std::string_view filename);
  void clearmessages();

  // The bytes of the one definition file that was read when there was no option yet; null when it was none or
  // not the only one.
  const std::string* definition() const noexcept { return fdefinitions == 1 ? &fdefinition : nullptr; }
  // When the list of messages is full, entries that have errors can no longer be told from good ones.
  bool wasfull() const noexcept;

 private:
  thandles fhandles;
  std::string fdefinition;
  int fdefinitions = 0;
  bool fwasfull = false;
};

}  // namespace fuzzing

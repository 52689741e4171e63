// Texts for the operating system's error codes.
#include "base/systemerror.h"

#include <cstring>

#include "base/numtext.h"

namespace optcore {

std::string_view systemerrortext(std::int32_t code) noexcept {
  const char* text = ::strerrordesc_np(code);
  return text != nullptr ? text : "Unknown error";
}

shortstring errorcodetext(std::int32_t code) noexcept {
  return concat("Error code = ", inttostr(code).view(), "; ", systemerrortext(code));
}

}  // namespace optcore

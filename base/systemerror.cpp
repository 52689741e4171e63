// The operating system's text for an error code.
#include "base/systemerror.h"

#include <cstring>

namespace wexcorin {

std::string_view systemerrortext(std::int32_t code) noexcept {
  const char* text = ::strerrordesc_np(code);
  return text != nullptr ? text : "Unknown error";
}

}  // namespace wexcorin

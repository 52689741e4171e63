// texts.h: texts of the library as str and back. The library has bytes: those that are no UTF-8 stand in a
// str as surrogates, as in file names.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

namespace binding {

namespace py = pybind11;

inline py::str decoded(std::string_view text) {
  PyObject* result =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (result == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(result);
}

// The bytes of a str, as long as it lives. Only a str with surrogates needs a copy.
class encoded {
 public:
  explicit encoded(const py::str& text) {
    Py_ssize_t size = 0;
    const char* bytes = PyUnicode_AsUTF8AndSize(text.ptr(), &size);
    if (bytes == nullptr) {
      PyErr_Clear();
      fcopy =
          py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
      if (!fcopy) throw py::error_already_set();
      bytes = PyBytes_AS_STRING(fcopy.ptr());
      size = PyBytes_GET_SIZE(fcopy.ptr());
    }
    fbytes = std::string_view(bytes, static_cast<std::size_t>(size));
  }
  std::string_view bytes() const { return fbytes; }

 private:
  py::object fcopy{};
  std::string_view fbytes{};
};

}  // namespace binding

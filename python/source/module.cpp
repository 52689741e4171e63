// module.cpp: the module _core, which binds the shared library. wexcorin/_core.pyi declares it for Python.
#include <pybind11/pybind11.h>

#include "handle.h"
#include "texts.h"

namespace {

void bindhandle(pybind11::module_& module) {
  using binding::thandle;
  pybind11::class_<thandle>(module, "Handle")
      .def(pybind11::init<>())
      .def("close", &thandle::close)
      .def_property_readonly("closed", &thandle::closed)
      .def("readdefinition", &thandle::readdefinition)
      .def("readfile", &thandle::readfile)
      .def("readtext", &thandle::readtext)
      .def("write", &thandle::write)
      .def("showhelp", &thandle::showhelp)
      .def("takemessages", &thandle::takemessages)
      .def("count", &thandle::count)
      .def("find", &thandle::find)
      .def("keys", &thandle::keys)
      .def("get", &thandle::get)
      .def("value", &thandle::value)
      .def("text", &thandle::text)
      .def("defined", &thandle::defined)
      .def("values", &thandle::values)
      .def("setinteger", &thandle::setinteger)
      .def("setreal", &thandle::setreal)
      .def("settext", &thandle::settext)
      .def("reset", &thandle::reset)
      .def("resetall", &thandle::resetall)
      .def("setnobounds", &thandle::setnobounds)
      .def("describe", &thandle::describe)
      .def("groups", &thandle::groups)
      .def("synonyms", &thandle::synonyms)
      .def("dotentries", &thandle::dotentries)
      .def("indicators", &thandle::indicators);
}

}  // namespace

// An exception from here becomes an ImportError with its text: a library of another interface is one.
PYBIND11_MODULE(_core, module) {
  module.attr("library") = binding::decoded(wexcorin::options().version());
  bindhandle(module);
}

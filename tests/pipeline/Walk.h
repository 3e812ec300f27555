#pragma once

#include <gtest/gtest.h>

#include "tavrone/tavrone.h"
#include "tests/Failure.h"

namespace tavrone {

using Line = Record<"Line", Field<"Text", tvstring>>;

inline SmartPtr<DataObject> line(tvstring const &text) {
  auto *const made = new Line;
  made->set<"Text">(text);
  return made;
}
// "-" for null.
inline std::string textOf(DataObject *object) {
  return object == nullptr ? "-" : str(static_cast<Line *>(object)->get<"Text">());
}

// What the parsers, writers and rules of these tests do with a text: report each '!' in it, and stop at a '*'.
inline void walk(ExceptionHandler *handler, std::string const &text) {
  for (char const c : text) {
    if (c == '*') raise<TransformRuntimeException>("stop", "test", 1);
    if (c != '!') continue;
    TransformException failure(("bad " + text).c_str());
    handler->onException(&failure);
  }
}

// Runs the three forms of an operation on texts to walk through and returns the value of the `2` form. `stored` is the
// handler of the parser, writer or rule behind it.
template <class Plain, class Handled, class Collected>
auto valueInThreeForms(ExceptionHandler *&stored, Plain plain, Handled handled, Collected collected) {
  CascadingExceptionHandler handler;
  EXPECT_EQ(failureOf<TransformException>([&] { plain("a!b!"); }).text.substr(0, 8), "bad a!b!");
  handled("a!b!", &handler);
  EXPECT_EQ(stored, &handler) << "an explicit handler stays";
  EXPECT_EQ(handler.getExceptions().size(), 2u);
  deleteOwned(handler.getExceptions());
  auto const result = collected("a!b!");
  EXPECT_EQ(result.exceptions.size(), 2u);
  EXPECT_EQ(stored, ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER) << "a local one goes";
  EXPECT_EQ(failureOf<TransformRuntimeException>([&] { collected("!*"); }).text, "stop");
  EXPECT_EQ(stored, ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER) << "also when the form raises";
  return result.value;
}

struct LineWriter : AbstractSimpleOutputWriter {
  void writeHeader(DataObject *header, TransformContext &) override { add(header); }
  void writeData(DataObject *data, TransformContext &) override { add(data); }
  void writeTrailer(DataObject *trailer, TransformContext &) override { add(trailer); }
  void initMessage() override { text = ""; }
  tvstring endMessage() override { return text.c_str(); }
  void add(DataObject *part) {
    text += textOf(part);
    walk(exceptionHandler, textOf(part));
  }
  std::string text;
};

}  // namespace tavrone

#include "tavrone/dataobject/DataObjectXML.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/DataObjectBase.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"

// The XML of records and sections, as DataObjectBase and AbstractDataObjectSection show it.

namespace tavrone {

namespace {

// Whether a byte sends its text through the rebuilding path.
constexpr bool needsWork(unsigned char byte) {
  switch (byte) {
    case '<':
    case '>':
    case '&':
    case '\'':
    case '"':
      return true;
    case '\r':
    case '\n':
    case '\t':
      return false;
    default:
      return byte < 32;
  }
}

size_t findWork(char const *text, size_t length) {
  size_t i = 0;
  while (i < length && !needsWork(static_cast<unsigned char>(text[i]))) ++i;
  return i;
}

void appendEntities(tvstringbuffer &out, char const *text, size_t length, bool escapeApostrophe) {
  for (size_t i = 0; i < length; ++i) {
    char const c = text[i];
    auto const byte = static_cast<unsigned char>(c);
    if (!needsWork(byte)) {
      out.append(c);
      continue;
    }
    switch (c) {
      case '&':
        out.append("&amp;", 5);
        break;
      case '"':
        out.append("&quot;", 6);
        break;
      case '<':
        out.append("&lt;", 4);
        break;
      case '>':
        out.append("&gt;", 4);
        break;
      case '\'':
        if (escapeApostrophe)
          out.append("&apos;", 6);
        else
          out.append(c);
        break;
      default:
        out.append("&#", 2);
        out.append(intToString(byte));
        out.append(';');
    }
  }
}

void appendTag(tvstringbuffer &out, char const *open, tvstring const &name) {
  out.append(open);
  out.append(name);
  out.append('>');
}

}  // namespace

bool DataObjectXML::hasNonXMLCharacters(tvstring const &text) {
  return findWork(text.data(), text.length()) != text.length();
}

tvstring DataObjectXML::fixXMLCharData(tvstring const &text) {
  return replaceXMLEntities(text, false);
}

tvstring DataObjectXML::replaceXMLEntities(tvstring const &text, bool escapeApostrophe) {
  if (!hasNonXMLCharacters(text)) return text;
  tvstringbuffer out;
  out.reserve(text.length() + 16);
  appendEntities(out, text.data(), text.length(), escapeApostrophe);
  return out;
}

void DataObjectXML::appendXMLCharData(tvstringbuffer &out, char const *text, size_t length) {
  size_t const clean = findWork(text, length);
  out.append(text, clean);
  appendEntities(out, text + clean, length - clean, false);
}

void DataObjectXML::appendIndent(tvstringbuffer &out, int level) {
  out.append(level, '\t');
}

tvstring DataObjectBase::toXMLString() {
  tvstringbuffer out;
  tvstring const tag = getRootXMLTag();
  appendTag(out, "<", tag);
  out.append('\n');
  out.append(toXMLStringImpl(1));
  appendTag(out, "</", tag);
  out.append('\n');
  return out;
}

tvstring DataObjectBase::toXMLString(int level) {
  if (getParentSection() != nullptr) return toXMLStringImpl(level);
  tvstringbuffer out;
  tvstring const tag = getRootXMLTag();
  DataObjectXML::appendIndent(out, level - 1);
  appendTag(out, "<", tag);
  out.append('\n');
  out.append(toXMLStringImpl(level));
  DataObjectXML::appendIndent(out, level - 1);
  appendTag(out, "</", tag);
  out.append('\n');
  return out;
}

tvstring DataObjectBase::toXMLStringImpl(int level) {
  tvstringbuffer out;
  int const count = getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (isNull(i)) continue;
    SmartPtr<Object> const value(getField(i));
    if (value.isNull()) continue;
    tvstring const &name = getFieldName(i);
    if (auto *section = dynamic_cast<SectionObject *>(value.get())) {
      // Sections of other kinds than the library's have their text only.
      if (auto *own = dynamic_cast<AbstractDataObjectSection *>(section->getSection()))
        out.append(own->toXMLString(name, level));
      continue;
    }
    tvstring const text = Parsing::runtimeObjectToString(value.get(), getFieldType(i));
    DataObjectXML::appendIndent(out, level);
    appendTag(out, "<", name);
    DataObjectXML::appendXMLCharData(out, text.data(), text.length());
    appendTag(out, "</", name);
    out.append('\n');
  }
  return out;
}

tvstring AbstractDataObjectSection::toXMLString() {
  return toXMLString(1);
}
tvstring AbstractDataObjectSection::toXMLString(int level) {
  return toXMLString(getName(), level);
}

tvstring AbstractDataObjectSection::toXMLString(tvstring const &name, int level) {
  tvstringbuffer out;
  int const count = getElementCount();
  for (int i = 0; i < count; ++i) {
    DataObjectXML::appendIndent(out, level);
    appendTag(out, "<", name);
    out.append('\n');
    out.append(getElement(i)->toXMLStringImpl(level + 1));
    DataObjectXML::appendIndent(out, level);
    appendTag(out, "</", name);
    out.append('\n');
  }
  return out;
}

}  // namespace tavrone

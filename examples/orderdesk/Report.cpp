#include "examples/orderdesk/Report.h"

#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "examples/orderdesk/Files.h"

namespace examples {

namespace {

constexpr size_t MESSAGE_WIDTH = 240;
constexpr size_t TEXT_WIDTH = 160;

std::string format(char const *pattern, ...) __attribute__((format(printf, 1, 2)));
std::string format(char const *pattern, ...) {
  va_list arguments, again;
  va_start(arguments, pattern);
  va_copy(again, arguments);
  int const length = std::vsnprintf(nullptr, 0, pattern, arguments);
  std::string text(length < 0 ? 0 : static_cast<size_t>(length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, pattern, again);
  va_end(again);
  va_end(arguments);
  return text;
}

std::string_view viewOf(tvstring const &text) {
  return {text.data(), text.length()};
}

// XML with its line ends and tabs; what else is not printable is shown by its code.
std::string shownXML(DataObject &record) {
  std::string out;
  tvstring const xml = record.toXMLString();
  for (char const c : viewOf(xml)) {
    if (c == '\n' || c == '\t' || (c >= ' ' && c <= '~'))
      out += c;
    else
      out += format("\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
  }
  if (!out.empty() && out.back() != '\n') out += '\n';
  return out;
}

// "orders.txt:7", and the column for a message that does not begin its line.
std::string placeOf(FileMessage const &message) {
  std::string const place = shownName(message.source) + ":" + std::to_string(message.line);
  return message.column == 1 ? place : place + ":" + std::to_string(message.column);
}

}  // namespace

Report::Report(bool quiet) : quiet_(quiet), hasBar_(!quiet && isatty(STDERR_FILENO) != 0) {}

Report::~Report() {
  eraseBar();
}

std::string Report::shown(std::string_view text, size_t width) {
  constexpr char SOH = '\x01';
  std::string out;
  for (size_t i = 0; i < text.size() && out.size() <= width; ++i) {
    char const c = text[i];
    if (c == '\n')
      out += " / ";
    else if (c != '\r' || i + 1 == text.size() || text[i + 1] != '\n')
      out += c == SOH ? '|' : c == '\t' ? ' ' : c < ' ' || c > '~' ? '?' : c;
  }
  if (out.size() > width) out.replace(width - 3, out.npos, "...");
  return out;
}

void Report::tellFailure(FileMessage const &message, tvstring const &formatName, ExceptionDataObject const &failure) {
  constexpr char const *ROW = "%-24s %-11s %-14s %-16s %-8s %-14s %s\n";
  if (!std::exchange(hasHeading_, true))
    print(format(ROW, "Refused", "Format", "Type", "Phase", "Code", "Field", "Text"));
  tvstring const code = failure.getErrorCode().empty() ? failure.getContextProperty(ExceptionObject::INTERNAL_CODE)
                                                       : failure.getErrorCode();
  bool const hasField = failure.isNotNull(failure.getFieldIndex("FieldName"));
  auto const column = [](tvstring const &text, size_t width) { return shown(viewOf(text), width); };
  print(format(ROW, placeOf(message).c_str(), formatName.c_str(), column(failure.getErrorType(), 14).c_str(),
               column(failure.getErrorPhase(), 16).c_str(), column(code, 8).c_str(),
               hasField ? column(failure.getFFieldName(), 40).c_str() : "",
               column(failure.getMessage(), TEXT_WIDTH).c_str()));
}

void Report::explain(FileMessage const &message, tvstring const &formatName, Inspection const &found,
                     std::string_view became) {
  print(format("\n%s: %s, %zu bytes\n  %s\n", placeOf(message).c_str(), formatName.c_str(), message.bytes.size(),
               shown(message.bytes, MESSAGE_WIDTH).c_str()));
  for (auto const &[title, record] :
       {std::pair("identified as", found.header.get()), std::pair("parsed as", found.record.get()),
        std::pair("taken as", found.order.get())})
    if (record != nullptr) print(format("%s\n", title) + shownXML(*record));
  if (!became.empty()) print("became\n  " + shown(became, MESSAGE_WIDTH) + "\n");
}

void Report::tell(std::string const &line) {
  print("orderdesk: " + line + "\n");
}

// "[=========>          ]  45%  12345 messages, 230000 per second"
void Report::progress(size_t done, size_t messages) {
  constexpr double INTERVAL = 0.1;
  constexpr size_t WIDTH = 30;
  if (!hasBar_ || seconds() < nextBar_) return;
  nextBar_ = seconds() + INTERVAL;
  std::string bar;
  if (total_ != 0) {
    double const part = std::min(1.0, static_cast<double>(doneFiles_ + done) / static_cast<double>(total_));
    bar.assign(static_cast<size_t>(part * WIDTH), '=');
    bar = format("[%-*s] %3.0f%%  ", static_cast<int>(WIDTH), bar.c_str(), 100 * part);
  }
  bar += format("%zu messages, %.0f per second", messages, static_cast<double>(messages) / seconds());
  eraseBar();
  std::fputs(bar.c_str(), stderr);
  isBarShown_ = true;
}

void Report::summarize(std::map<tvstring, Tally> const &tallies) {
  if (quiet_) return;
  constexpr char const *ROW = "%-12s %9s %9s %9s%s\n";
  auto const row = [&](char const *name, Tally const &tally, std::string const &rate) {
    print(format(ROW, name, std::to_string(tally.messages).c_str(), std::to_string(tally.orders).c_str(),
                 std::to_string(tally.refused).c_str(), rate.c_str()));
  };
  if (hasHeading_) print("\n");
  print(format(ROW, "Format", "Messages", "Orders", "Refused", "  Messages per second"));
  Tally sum;
  for (auto const &[name, tally] : tallies) {
    row(name.c_str(), tally, "");
    sum.messages += tally.messages;
    sum.orders += tally.orders;
    sum.refused += tally.refused;
  }
  row("Sum", sum, format("%21.0f", static_cast<double>(sum.messages) / seconds()));
}

void Report::showSamples(std::map<tvstring, Tally> const &tallies) {
  for (auto const &[name, tally] : tallies) {
    if (tally.orders == 0) continue;
    print(format("\n%s\n  %s\n", name.c_str(), shown(tally.in, MESSAGE_WIDTH).c_str()));
    if (!tally.out.empty()) print("  became\n  " + shown(tally.out, MESSAGE_WIDTH) + "\n");
  }
}

void Report::print(std::string const &text) {
  eraseBar();
  std::fputs(text.c_str(), stderr);
}

void Report::eraseBar() {
  if (std::exchange(isBarShown_, false)) std::fputs("\r\x1b[K", stderr);
}

double Report::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

}  // namespace examples

#include "examples/orderdesk/OrderDesk.h"

#include "examples/orderdesk/Rejects.h"

namespace examples {

namespace {

constexpr size_t SAMPLE = 1024;  // as much of a message as a sample needs

bool isStandardOutput(std::string const &path) {
  return path.empty() || path == "-";
}

Target const *targetOf(Options const &options) {
  if (options.to.empty()) {
    if (!options.output.empty()) throw UsageError("--output needs --to, see --help");
    bindNoTarget();
    return nullptr;
  }
  Target const *const target = findTarget(options.to);
  if (target == nullptr) throw UsageError("unknown format " + options.to + ", --to takes one of " + targetNames());
  target->bind();
  return target;
}

// Unknown, which is 0, if one of the files has no size beforehand.
size_t totalSize(std::vector<std::string> const &files) {
  size_t total = 0;
  for (std::string const &path : files) {
    size_t const size = sizeOfFile(path);
    if (size == 0) return 0;
    total += size;
  }
  return total;
}

}  // namespace

OrderDesk::OrderDesk(Options const &options, Report &report)
    : options_(options),
      report_(report),
      target_(targetOf(options)),
      service_(newIdentificationService()),
      router_(service_) {
  if (options.files.empty()) throw UsageError("no file is named, see --help");
  LookupContextFactory::getLookupContext()->bind("memory", new ContextOutputProtocol);
  addConfigurations(router_);
  inspector_.emplace(*service_);
  openFiles();
}

// Before anything is read, so that nothing is done in vain.
void OrderDesk::openFiles() {
  std::vector<std::string> others = options_.files;
  if (target_ != nullptr) {
    requireDistinct(options_.output, others);
    output_.emplace(isStandardOutput(options_.output) ? "" : options_.output);
    if (!isStandardOutput(options_.output)) others.push_back(options_.output);
  }
  if (options_.rejects.empty()) return;
  if (isStandardOutput(options_.rejects)) throw UsageError("--rejects needs a file, see --help");
  requireDistinct(options_.rejects, others);
  rejects_.emplace(options_.rejects);
}

void OrderDesk::run() {
  report_.setTotal(totalSize(options_.files));
  if (target_ != nullptr) output_->write(target_->begin);
  for (std::string const &path : options_.files) {
    try {
      takeFile(path);
    } catch (UnreadableFile const &failure) {
      ++unreadable_;
      report_.tell(failure.what());
    }
  }
  if (target_ != nullptr) output_->write(target_->end);
  if (output_) output_->close();
  if (rejects_) rejects_->close();
  report_.summarize(tallies_);
  if (options_.samples) report_.showSamples(tallies_);
}

int OrderDesk::exitStatus() const {
  return unreadable_ != 0 ? 2 : refused_ != 0 ? 1 : 0;
}

void OrderDesk::takeFile(std::string const &path) {
  std::string const bytes = readFile(path);
  MessageReader reader(path == "-" ? "(standard input)" : std::string_view(path), bytes);
  size_t const before = messages_;
  for (FileMessage message; reader.next(message);) {
    take(message);
    report_.progress(reader.position(), ++messages_);
  }
  report_.fileDone(bytes.size());
  if (messages_ == before && !options_.quiet) report_.tell(shownName(path) + " holds no message");
}

void OrderDesk::take(FileMessage const &message) {
  context_.createOutputContext();
  context_.setProperty(TransformContext::INPUT_SOURCE_PROPERTY, message.source.c_str());
  context_.setProperty(TransformContext::INPUT_FORMAT_PROPERTY, tvstring::EMPTY);
  context_.setProperty(FORMAT_NAME_PROPERTY, tvstring::EMPTY);
  StringInputSource input(tvstring(message.bytes.data(), message.bytes.size()));
  try {
    try {
      router_.processMessage(input, context_);
    } catch (TransformException &) {
      throw;
    } catch (Exception const &other) {
      throw TransformException(other.getMessage());
    }
  } catch (TransformException &failure) {
    return refuse(message, input, failure);
  }
  accept(message, input);
}

void OrderDesk::accept(FileMessage const &message, InputSource &input) {
  tvstring const format = formatName(input);
  std::string_view const written = result();
  if (options_.explain) report_.explain(message, format, inspector_->inspect(input, context_), written);
  Tally &tally = tallies_[format];
  ++tally.messages;
  if (context_.getProperty(TransformContext::INPUT_FORMAT_PROPERTY) == SESSION_FORMAT) return;
  if (tally.orders++ == 0) {
    tally.in = message.bytes.substr(0, SAMPLE);
    tally.out = written.substr(0, SAMPLE);
  }
  if (target_ == nullptr) return;
  output_->write(written);
  output_->write(options_.lines && target_->isFramed ? "\n" : target_->behind);
}

void OrderDesk::refuse(FileMessage const &message, InputSource &input, TransformException &failure) {
  tvstring const format = formatName(input);
  Inspection found;
  if (options_.explain || options_.collect) found = inspector_->inspect(input, context_);
  if (options_.explain) report_.explain(message, format, found, {});
  std::vector<ExceptionDataObject *> failures;
  if (options_.collect)
    for (auto const &collected : found.failures) failures.push_back(collected.get());
  // What no step of the inspection meets fails on its way out.
  if (failures.empty()) failures.push_back(&failure);
  for (ExceptionDataObject const *each : failures) report_.tellFailure(message, format, *each);
  if (rejects_) writeReject(*rejects_, message, failures);
  Tally &tally = tallies_[format];
  ++tally.messages;
  ++tally.refused;
  ++refused_;
}

std::string_view OrderDesk::result() {
  ByteArrayOutputDevice const *const device = context_.getOutputContext()->getOutputDevice("memory");
  if (device == nullptr) return {};
  int length = 0;
  char const *const bytes = device->getAsBytes(length);
  return {bytes, static_cast<size_t>(length)};
}

// That of the configuration which took the message, or else by its header.
tvstring OrderDesk::formatName(InputSource &input) {
  tvstring const name = context_.getProperty(FORMAT_NAME_PROPERTY);
  if (!name.empty()) return name;
  try {
    SmartPtr<DataObject> const header = service_->identifyMessage(input);
    return formatNameOf(header.get());
  } catch (TransformException const &) {
    return formatNameOf(nullptr);
  }
}

}  // namespace examples

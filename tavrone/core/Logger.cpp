#include "tavrone/core/Logger.h"

#include <cstdio>
#include <map>
#include <utility>

#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

namespace {

char const *linePrefix(T_LOG_LEVEL level) {
  switch (level) {
    case LOG_LEVEL_ERROR:
      return "[ERROR] ";
    case LOG_LEVEL_WARN:
      return "[WARN] ";
    case LOG_LEVEL_INFO:
      return "[INFO] ";
    default:
      return "[DEBUG] ";
  }
}

}  // namespace

ILogger::~ILogger() noexcept(false) = default;
SimpleLogger::~SimpleLogger() noexcept(false) = default;

bool SimpleLogger::isLevelEnabled(T_LOG_LEVEL level) const {
  SimpleLogger const *logger = this;
  while (logger->level_ == LOG_LEVEL_UNSET && logger->parent_ != nullptr) logger = logger->parent_;
  return level <= logger->level_;
}

void SimpleLogger::write(T_LOG_LEVEL level, tvstring const &text) const {
  if (!isLevelEnabled(level)) return;
  tvstringbuffer line(linePrefix(level));
  line.append(text).append('\n');
  std::fwrite(line.data(), 1, line.length(), stdout);  // one call a line, so that lines of several threads stay whole
}

void SimpleLogger::write(T_LOG_LEVEL level, char const *text) const {
  write(level, text == nullptr ? tvstring() : tvstring().static_string(text));
}

SimpleLogger *SimpleLogger::getLogger(SimpleLogger *parent, tvstring const &name) {
  static std::map<std::pair<SimpleLogger *, tvstring>, SmartPtr<SimpleLogger>> registry;
  auto const found = registry.find({parent, name});
  if (found != registry.end()) return found->second.get();

  tvstring const ownName(name.data(), name.length());  // what was given may be a view of text that goes away
  SmartPtr<SimpleLogger> const logger(
      new SimpleLogger(ownName, parent, ownName.length() == 0 ? LOG_LEVEL_INFO : LOG_LEVEL_UNSET));
  registry.emplace(std::pair(parent, ownName), logger);
  return logger.get();
}

Logger &Logger::operator=(Logger const &other) {
  if (this != &other) logger_ = other.logger_;
  return *this;
}

Logger LogFactory::getRoot() {
  return SimpleLogger::getLogger(nullptr, tvstring());
}

Logger LogFactory::getLog(char const *category) {
  return getLog(tvstring(category));
}

Logger LogFactory::getLog(tvstring const &category) {
  SimpleLogger *logger = SimpleLogger::getLogger(nullptr, tvstring());
  if (category.length() == 0) return logger;
  size_t start = 0;
  for (size_t dot; (dot = category.find('.', start)) != tvstring::npos; start = dot + 1)
    logger = SimpleLogger::getLogger(logger, category.substr(start, dot - start));
  return SimpleLogger::getLogger(logger, category.substr(start));
}

constinit tvstringliteral const LoggingConstants::ROOT_CATEGORY("tavrone.runtime");
constinit tvstringliteral const LoggingConstants::MESSAGE_FLOW_CATEGORY("tavrone.runtime.messageflow");
constinit tvstringliteral const LoggingConstants::MESSAGE_CATEGORY("tavrone.runtime.message");
constinit tvstringliteral const LoggingConstants::MAPPING_CATEGORY("tavrone.runtime.mapping");

Logger LoggingConstants::getRuntimeLog() {
  return LogFactory::getLog(ROOT_CATEGORY);
}

Logger LoggingConstants::getMessageFlowLog(tvstring const &name) {
  return LogFactory::getLog(MESSAGE_FLOW_CATEGORY + '.' + name);
}

Logger LoggingConstants::getMessageLog(tvstring const &name) {
  return LogFactory::getLog(MESSAGE_CATEGORY + '.' + name);
}

Logger LoggingConstants::getMappingLog(tvstring const &name) {
  return LogFactory::getLog(MAPPING_CATEGORY + '.' + name);
}

}  // namespace tavrone

#pragma once

#include "tavrone/core/Object.h"
#include "tavrone/core/SmartPtr.h"

namespace tavrone {

// A line of some level is written when that level is at most the logger's effective one; 4 is unused.
enum T_LOG_LEVEL : int {
  LOG_LEVEL_UNSET = 0,
  LOG_LEVEL_ERROR = 1,
  LOG_LEVEL_WARN = 2,
  LOG_LEVEL_INFO = 3,
  LOG_LEVEL_DEBUG = 5
};

// Where log lines go. The text of a line is data, never a format; a host may derive its own logger.
class TAVRONE_API ILogger : public virtual ObjectRef {
 public:
  ~ILogger() noexcept(false) override;

  virtual tvstring const &getCategoryName() const = 0;
  // Each writes the text as one line of its level, where that is enabled. A text may be null.
  virtual void info(char const *text) = 0;
  virtual void info(tvstring const &text) = 0;
  virtual void debug(tvstring const &text) = 0;
  virtual void debug(char const *text) = 0;
  virtual void warn(tvstring const &text) = 0;
  virtual void warn(char const *text) = 0;
  virtual void error(tvstring const &text) = 0;
  virtual void error(char const *text) = 0;
  // LOG_LEVEL_UNSET leaves the choice to the logger, as without a level.
  virtual void setLogLevel(T_LOG_LEVEL level) = 0;
  virtual bool isLevelEnabled(T_LOG_LEVEL level) const = 0;
};

// Prints lines of the form "[INFO] some text" to standard output. Without a level of its own it takes its parent's;
// with none set up to the root, nothing is written. A null text is written as an empty one.
class TAVRONE_API SimpleLogger : public ILogger {
 public:
  explicit SimpleLogger(tvstring const &name) : SimpleLogger(name, nullptr) {}
  // Borrows the parent, which must outlive it; null for a root.
  SimpleLogger(tvstring const &name, SimpleLogger *parent) : SimpleLogger(name, parent, LOG_LEVEL_UNSET) {}
  SimpleLogger(tvstring const &name, SimpleLogger *parent, T_LOG_LEVEL level)
      : level_(level), name_(name), parent_(parent) {}
  SimpleLogger(SimpleLogger const &other) : SimpleLogger(other.name_, other.parent_, other.level_) {}
  SimpleLogger &operator=(SimpleLogger const &) = default;
  ~SimpleLogger() noexcept(false) override;

  // The last segment of the category only: "b" for "a.b".
  tvstring const &getCategoryName() const override { return name_; }
  void info(char const *text) override { write(LOG_LEVEL_INFO, text); }
  void info(tvstring const &text) override { write(LOG_LEVEL_INFO, text); }
  void debug(tvstring const &text) override { write(LOG_LEVEL_DEBUG, text); }
  void debug(char const *text) override { write(LOG_LEVEL_DEBUG, text); }
  void warn(tvstring const &text) override { write(LOG_LEVEL_WARN, text); }
  void warn(char const *text) override { write(LOG_LEVEL_WARN, text); }
  void error(tvstring const &text) override { write(LOG_LEVEL_ERROR, text); }
  void error(char const *text) override { write(LOG_LEVEL_ERROR, text); }
  void setLogLevel(T_LOG_LEVEL level) override { level_ = level; }
  bool isLevelEnabled(T_LOG_LEVEL level) const override;

  // The one logger of that parent and name, made on first use and kept until the process exits; borrowed. A new one
  // with an empty name gets the level info, any other none. The registry has no lock.
  static SimpleLogger *getLogger(SimpleLogger *parent, tvstring const &name);

 private:
  void write(T_LOG_LEVEL level, tvstring const &text) const;
  void write(T_LOG_LEVEL level, char const *text) const;

  T_LOG_LEVEL level_;
  tvstring name_;
  SimpleLogger *parent_;
};

// A logger as a value. Without one it writes nothing, has no level enabled and an empty category name.
class TAVRONE_API Logger {
 public:
  Logger() = default;
  // Adds a reference; null for none.
  Logger(ILogger *logger) : logger_(logger) {}
  Logger(Logger const &) = default;
  Logger &operator=(Logger const &other);

  void info(char const *text) const { write(&ILogger::info, text); }
  void info(tvstring const &text) const { write(&ILogger::info, text); }
  void debug(char const *text) const { write(&ILogger::debug, text); }
  void debug(tvstring const &text) const { write(&ILogger::debug, text); }
  void warn(char const *text) const { write(&ILogger::warn, text); }
  void warn(tvstring const &text) const { write(&ILogger::warn, text); }
  void error(char const *text) const { write(&ILogger::error, text); }
  void error(tvstring const &text) const { write(&ILogger::error, text); }

  bool isLevelEnabled(T_LOG_LEVEL level) const { return !logger_.isNull() && logger_->isLevelEnabled(level); }
  void setLogLevel(T_LOG_LEVEL level) const {
    if (!logger_.isNull()) logger_->setLogLevel(level);
  }
  tvstring const &getCategoryName() const { return logger_.isNull() ? tvstring::EMPTY : logger_->getCategoryName(); }

 private:
  void write(void (ILogger::*writer)(char const *), char const *text) const {
    if (!logger_.isNull()) (logger_.get()->*writer)(text);
  }
  void write(void (ILogger::*writer)(tvstring const &), tvstring const &text) const {
    if (!logger_.isNull()) (logger_.get()->*writer)(text);
  }

  SmartPtr<ILogger> logger_;
};

// The loggers of categories: SimpleLoggers, which live until the process exits.
class TAVRONE_API LogFactory {
 public:
  // The root logger; its name is empty.
  static Logger getRoot();
  // The logger of a dotted category: "a.b" is the child "b" of the child "a" of the root. Empty segments count; the
  // empty category is the root.
  static Logger getLog(char const *category);
  static Logger getLog(tvstring const &category);
};

// The library's categories. Those that take a name give the log for the constant, "." and the name.
class TAVRONE_API LoggingConstants {
 public:
  static tvstringliteral const ROOT_CATEGORY;          // "tavrone.runtime"
  static tvstringliteral const MESSAGE_FLOW_CATEGORY;  // "tavrone.runtime.messageflow"
  static tvstringliteral const MESSAGE_CATEGORY;       // "tavrone.runtime.message"
  static tvstringliteral const MAPPING_CATEGORY;       // "tavrone.runtime.mapping"

  static Logger getRuntimeLog();
  static Logger getMessageFlowLog(tvstring const &name);
  static Logger getMessageLog(tvstring const &name);
  static Logger getMappingLog(tvstring const &name);
};

}  // namespace tavrone

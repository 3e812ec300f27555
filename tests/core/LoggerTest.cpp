#include "tavrone/core/Logger.h"

#include <gtest/gtest.h>

namespace tavrone {
namespace {

using std::string_literals::operator""s;

std::string printed(Logger const &log, void (*write)(Logger const &)) {
  testing::internal::CaptureStdout();
  write(log);
  return testing::internal::GetCapturedStdout();
}

void writeAll(Logger const &log) {
  log.error("e");
  log.warn("w");
  log.info("i");
  log.debug("d");
  log.error(tvstring("E"));
  log.warn(tvstring("W"));
  log.info(tvstring("I"));
  log.debug(tvstring("D"));
}

TEST(Logger, WritesWhatItsLevelAllows) {
  std::pair<int, char const *> const cases[] = {
      {0, ""},
      {1, "[ERROR] e\n[ERROR] E\n"},
      {2, "[ERROR] e\n[WARN] w\n[ERROR] E\n[WARN] W\n"},
      {4, "[ERROR] e\n[WARN] w\n[INFO] i\n[ERROR] E\n[WARN] W\n[INFO] I\n"},
      {5, "[ERROR] e\n[WARN] w\n[INFO] i\n[DEBUG] d\n[ERROR] E\n[WARN] W\n[INFO] I\n[DEBUG] D\n"}};
  for (auto const &[level, lines] : cases)
    EXPECT_EQ(printed(Logger(new SimpleLogger("x", nullptr, T_LOG_LEVEL(level))), writeAll), lines) << level;
}

TEST(Logger, WritesTheTextByteForByte) {
  Logger const log(new SimpleLogger("x", nullptr, LOG_LEVEL_INFO));
  EXPECT_EQ(printed(log,
                    [](Logger const &to) {
                      to.info("100%s %n");
                      to.info(tvstring("a\0b", 3));
                      to.info(tvstring("12345").substr(1, 2));
                      to.info(static_cast<char const *>(nullptr));
                    }),
            "[INFO] 100%s %n\n[INFO] a\0b\n[INFO] 23\n[INFO] \n"s);
}

TEST(Logger, IsAValueThatMayHoldNoLogger) {
  Logger log;
  log.setLogLevel(LOG_LEVEL_DEBUG);
  EXPECT_EQ(printed(log, writeAll), "");
  EXPECT_FALSE(log.isLevelEnabled(LOG_LEVEL_ERROR));
  EXPECT_EQ(log.getCategoryName(), "");
  auto &alias = log;
  log = Logger(new SimpleLogger("only"));
  log = alias;
  EXPECT_EQ(log.getCategoryName(), "only");
}

TEST(SimpleLogger, TakesTheFirstLevelUpItsParents) {
  SimpleLogger root("", nullptr, LOG_LEVEL_WARN);
  SimpleLogger middle("a", &root);
  SimpleLogger leaf("b", &middle);
  auto const highest = [&] {
    int level = 5;
    while (level > 0 && !leaf.isLevelEnabled(T_LOG_LEVEL(level))) --level;
    return level;
  };
  EXPECT_EQ(highest(), LOG_LEVEL_WARN);
  middle.setLogLevel(LOG_LEVEL_DEBUG);
  EXPECT_EQ(highest(), LOG_LEVEL_DEBUG);
  leaf.setLogLevel(LOG_LEVEL_ERROR);
  EXPECT_EQ(highest(), LOG_LEVEL_ERROR);
  EXPECT_FALSE(SimpleLogger("alone").isLevelEnabled(LOG_LEVEL_ERROR));
}

TEST(LogFactory, KeepsOneLoggerForEachCategory) {
  auto *const root = SimpleLogger::getLogger(nullptr, "");
  auto *const empty = SimpleLogger::getLogger(SimpleLogger::getLogger(root, "factory"), "");
  char text[] = "factory..b";
  Logger const leaf = LogFactory::getLog(tvstring().static_string(text));
  text[9] = 'X';  // names are copies
  EXPECT_EQ(&leaf.getCategoryName(), &SimpleLogger::getLogger(empty, "b")->getCategoryName());
  EXPECT_EQ(leaf.getCategoryName(), "b");

  EXPECT_EQ(LogFactory::getRoot().getCategoryName(), "");
  LogFactory::getLog("").setLogLevel(LOG_LEVEL_DEBUG);
  EXPECT_TRUE(LogFactory::getLog("another.one").isLevelEnabled(LOG_LEVEL_DEBUG));
  EXPECT_FALSE(leaf.isLevelEnabled(LOG_LEVEL_DEBUG));  // the empty segment has the level info of its own
  LogFactory::getRoot().setLogLevel(LOG_LEVEL_INFO);
  EXPECT_FALSE(LogFactory::getLog("another.one").isLevelEnabled(LOG_LEVEL_DEBUG));
  EXPECT_TRUE(LogFactory::getLog("another.one").isLevelEnabled(LOG_LEVEL_INFO));
}

TEST(LoggingConstants, NameTheLibrarysCategories) {
  std::pair<Logger, char const *> const cases[] = {
      {LoggingConstants::getRuntimeLog(), "tavrone.runtime"},
      {LoggingConstants::getMessageFlowLog("F1"), "tavrone.runtime.messageflow.F1"},
      {LoggingConstants::getMessageLog("M1"), "tavrone.runtime.message.M1"},
      {LoggingConstants::getMappingLog("P1"), "tavrone.runtime.mapping.P1"}};
  for (auto const &[log, category] : cases)
    EXPECT_EQ(&log.getCategoryName(), &LogFactory::getLog(category).getCategoryName()) << category;
}

}  // namespace
}  // namespace tavrone

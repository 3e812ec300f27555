// Runs the built orderdesk as a user would, by the shell, in a folder of its own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

constexpr char const *ALL_DATA = "fix_session.txt siac_orders.txt fcs_messages.txt orders.txt broken_orders.txt";
constexpr char const *ORDER = "AB-0001|PB-1|IBM|B|100|191.125|20240315|20240315-14:30:00|true||NOW\n";

// The text with SOH for '~'.
std::string wire(std::string text) {
  std::replace(text.begin(), text.end(), '~', '\x01');
  return text;
}
std::string const FIX = wire(
    "8=FIX.4.4~9=145~35=D~49=GATEWAY~56=EXCHANGE~34=1~52=20240315-14:30:00~11=AB-0001~1=PB-1~21=1~18=G~55=IBM~54=1~"
    "60=20240315-14:30:00~38=100~40=2~44=191.125~58=NOW~10=212~");

struct Outcome {
  int status;
  std::string out, err;
};

class OrderDesk : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "orderdesk.XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void write(std::string const &name, std::string const &bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }
  std::string read(std::string const &name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // The command finds the program as $desk and the examples' data in $data.
  Outcome shell(std::string const &command) const {
    std::string const setting =
        "cd '" + folder_.string() + "' && desk='" ORDERDESK_PROGRAM "' && data='" ORDERDESK_DATA "' && ";
    int const result = std::system((setting + "{ " + command + "\n} >out 2>err </dev/null").c_str());
    return {WEXITSTATUS(result), read("out"), read("err")};
  }
  Outcome run(std::string const &arguments) const { return shell("$desk " + arguments); }

  std::filesystem::path folder_;
};

std::vector<std::string> linesOf(std::string const &text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The last row of the summary: "<messages> <orders> <refused>".
std::string sumOf(Outcome const &run) {
  size_t const at = run.err.rfind("\nSum ");
  if (at == std::string::npos) return run.err;
  std::istringstream row(run.err.substr(at + 5));
  std::string messages, orders, refused;
  row >> messages >> orders >> refused;
  return messages + ' ' + orders + ' ' + refused;
}

TEST_F(OrderDesk, WritesAnOrderInEachFormat) {
  struct {
    char const *to;
    std::string result;
  } const cases[] = {
      {"fix", FIX},
      {"siac", wire("10001=Canonical~10002=162~25001=32~10003=ORD~10005=GATEWAY~10006=FLOOR~10007=1~11001=AB-0001~"
                    "11002=IBM~11003=B~11004=100~11005=191.125~11006=20240315-14:30:00~11007=Y~11008=PB-1~11009=NOW~"
                    "10=137~")},
      {"fcs", "AB 0001 03152024\nBUY 100 IBM 191 1/8 AON\nACCT PB-1\nTEXT NOW\n000001\n\n"},
      {"delimited", ORDER},
      {"fixed",
       "ORD1AB-0001             PB-1        IBM         B000000100           191.1252024031520240315-14:30:00"
       "    YNOW" +
           std::string(97, ' ') + "\n"},
      {"xml",
       "<Orders>\n<Order>\n\t<OrderID>AB-0001</OrderID>\n\t<Account>PB-1</Account>\n\t<Symbol>IBM</Symbol>\n"
       "\t<Side>B</Side>\n\t<Quantity>100</Quantity>\n\t<Price>191.125</Price>\n"
       "\t<TradeDate>2024-03-15</TradeDate>\n\t<TransactTime>2024-03-15T14:30:00</TransactTime>\n"
       "\t<AllOrNone>true</AllOrNone>\n\t<Text>NOW</Text>\n</Order>\n</Orders>\n"},
  };
  write("order", ORDER);
  for (auto const &c : cases) {
    Outcome const done = run(std::string("--quiet order --to ") + c.to);
    EXPECT_EQ(done.out, c.result) << c.to;
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(done.status, 0);
  }
  EXPECT_EQ(run("--to fix --lines order").out, FIX + "\n");
}

TEST_F(OrderDesk, ReadsWhatItWroteAndWritesItTheSame) {
  for (std::string const to : {"fix", "siac", "fcs", "delimited", "fixed"}) {
    Outcome const first = shell("cd $data; $desk --to " + to + " " + ALL_DATA);
    write("written", first.out);
    Outcome const again = run("--quiet --to " + to + " - <written");
    EXPECT_TRUE(first.status == 1 && again.status == 0) << to;
    EXPECT_EQ(again.err, "") << to;
    EXPECT_TRUE(again.out == first.out && again.out.size() > 30'000) << to;
  }
}

TEST_F(OrderDesk, CountsWhatWasTakenAndWhatWasRefused) {
  std::pair<char const *, char const *> const cases[] = {
      {"--to fix ", "1234 1148 57"}, {"--to fcs ", "1234 875 330"}, {"", "1234 1156 49"}};
  for (auto const &[to, sum] : cases) EXPECT_EQ(sumOf(shell("cd $data; $desk " + std::string(to) + ALL_DATA)), sum);
}

TEST_F(OrderDesk, CutsFilesIntoMessages) {
  std::string const noCheckSum = wire(
      "10001=Canonical~10002=93~25001=33~10003=ORD~10007=4~11001=SF-0004~11002=XOM~11003=B~11004=400~"
      "11006=20240315-14:04:00~");
  std::string const fcs = "AB 0001 03152024\nBUY 100 IBM 191 1/8\nTEXT A|B\n000001";
  struct {
    std::string file;
    char const *sum;
  } const cases[] = {
      {"", "0 0 0"},
      {"\n\r\n\n", "0 0 0"},
      {FIX + FIX + "\n\n" + FIX + "\r\n" + FIX, "4 4 0"},
      {FIX.substr(0, 80) + FIX + wire("8@FIX.4.4~") + FIX, "4 2 2"},
      {noCheckSum + noCheckSum + FIX + noCheckSum + "\n", "4 4 0"},
      {fcs + "\n\n" + fcs + "\r\n\r\n" + ORDER, "3 3 0"},
      {"two lines\nof nothing\n" + std::string(ORDER) + "\n" + fcs, "3 2 1"},
      {std::string(ORDER) + FIX + ORDER, "3 3 0"},
  };
  for (auto const &c : cases) {
    write("file", c.file);
    EXPECT_EQ(sumOf(run("file")), c.sum) << c.file;
  }
}

TEST_F(OrderDesk, CollectTellsEveryFailureOfAMessage) {
  write("orders", "A|B|C|X|-1|1|20240315|20240316-14:30:00|||\nA|B|C|BUY|1,5|1.2.3|2024||maybe|KO|\n");
  auto const failures = [](Outcome const &run) {
    std::vector<std::string> lines = linesOf(run.err);
    lines.erase(lines.begin());
    return lines;
  };
  EXPECT_EQ(failures(run("--quiet orders")).size(), 2U);
  std::vector<std::string> const all = failures(run("--quiet --collect orders"));
  ASSERT_EQ(all.size(), 10U);
  char const *const fields[] = {"Side",  "Quantity",  "TradeDate",    "Side",      "Quantity",
                                "Price", "TradeDate", "TransactTime", "AllOrNone", "Legs"};
  for (size_t i = 0; i < all.size(); ++i)
    EXPECT_THAT(all[i],
                MatchesRegex(std::string(i < 3 ? "orders:1 .* DESK-0. +" : "orders:2 .* Input +") + fields[i] + " .+"));
}

TEST_F(OrderDesk, ExplainShowsHeaderRecordAndOrder) {
  write("file", FIX + "A\x1b[2J|B|C|S|1|1|20240315|20240315-14:30:00|||\n");
  std::string const shown = run("--explain --to delimited file").err;
  for (char const *part : {"file:1: FIX, 168 bytes\n  8=FIX.4.4|9=145|", "identified as\n<FIXHeader>\n",
                           "parsed as\n<ExternalObject>\n", "<OrdType>2</OrdType>", "taken as\n<Order>\n",
                           "became\n  AB-0001|PB-1|IBM|B|100|191.125|20240315|20240315-14:30:00|true||NOW / \n",
                           "file:1:169: delimited, 45 bytes\n  A?[2J|B|"})
    EXPECT_THAT(shown, HasSubstr(part));
  EXPECT_THAT(shown, Not(HasSubstr("\x1b")));
}

TEST_F(OrderDesk, RejectsKeepTheBytesAsTheyCame) {
  std::string const junk("\0\xff\x1b[2J #reject", 14);
  std::vector<std::string> const refused = {junk, FIX.substr(0, 100) + "X",
                                            "A|B|C\xff|S|0|1|20240315|20240315-14:30:00|||"};
  write("file", junk + "\n\n" + refused[1] + "\n" + ORDER + refused[2] + "\r\n");
  EXPECT_EQ(run("--rejects rejects file").status, 1);

  std::string const kept = read("rejects");
  int const lines[] = {1, 3, 5};
  size_t at = 0;
  for (size_t i = 0; i < refused.size(); ++i) {
    unsigned long long xml = 0, bytes = 0;
    int line = 0, used = 0;
    ASSERT_EQ(std::sscanf(kept.c_str() + at, "#reject failures=1 xml=%llu bytes=%llu line=%d column=1 source=file\n%n",
                          &xml, &bytes, &line, &used),
              3);
    at += static_cast<size_t>(used);
    EXPECT_EQ(line, lines[i]);
    EXPECT_EQ(kept.substr(at, 21), "<TransformException>\n");
    EXPECT_EQ(kept.substr(at + xml - 22, 22), "</TransformException>\n");
    EXPECT_EQ(kept.substr(at + xml, bytes), refused[i]);
    at += xml + bytes;
    EXPECT_EQ(kept[at++], '\n');
  }
  EXPECT_EQ(at, kept.size());

  EXPECT_EQ(run("--rejects again rejects").status, 1);
  EXPECT_EQ(read("again"), kept);
}

TEST_F(OrderDesk, TellsWrongUseInALine) {
  write("order", ORDER);
  struct {
    char const *arguments, *text;
  } const cases[] = {
      {"", "no file is named, see --help"},
      {"--foo order", "unknown option --foo, see --help"},
      {"-x order", "unknown option -x, see --help"},
      {"order --to", "option --to needs an argument, see --help"},
      {"--output= order", "option --output has an empty argument, see --help"},
      {"--quiet=1 order", "option --quiet takes no argument, see --help"},
      {"--to ebcdic order", "unknown format ebcdic, --to takes one of fix, siac, fcs, delimited, fixed, xml"},
      {"--output result order", "--output needs --to, see --help"},
      {"--rejects - order", "--rejects needs a file, see --help"},
      {"--to fix --output ./order order", "cannot write ./order: the file is named twice"},
      {"--rejects order order", "cannot write order: the file is named twice"},
      {"--to fix --output x --rejects x order", "cannot write x: the file is named twice"},
      {"--to fix --output . order", "cannot write .: Is a directory"},
      {"--rejects none/rejects order", "cannot write none/rejects: No such file or directory"},
      {"--quiet none order", "cannot read none: No such file or directory"},
      {"--quiet order .", "cannot read .: Is a directory"},
      {"--quiet -- --foo", "cannot read --foo: No such file or directory"},
  };
  for (auto const &c : cases) {
    Outcome const done = run(c.arguments);
    EXPECT_EQ(done.err, std::string("orderdesk: ") + c.text + "\n") << c.arguments;
    EXPECT_TRUE(done.status == 2 && done.out.empty()) << c.arguments;
  }
  EXPECT_EQ(read("order"), ORDER);
  EXPECT_EQ(run("--to delimited none order").out, ORDER);
}

TEST_F(OrderDesk, TellsResultsThatCannotBeWritten) {
  char const *const command = "$desk --quiet --to siac $data/fix_session.txt";
  EXPECT_THAT(shell(std::string(command) + " --output /dev/full").err,
              HasSubstr("orderdesk: cannot write /dev/full: No space left on device\n"));
  EXPECT_EQ(shell("$desk --quiet --rejects /dev/full $data/broken_orders.txt").status, 2);
  Outcome const closed = shell(std::string(command) + " >&-");
  EXPECT_EQ(closed.status, 2);
  EXPECT_THAT(closed.err, HasSubstr("orderdesk: cannot write standard output: Bad file descriptor\n"));
  Outcome const left = shell(std::string("{ ") + command + "; echo $? >status; } | true; cat status");
  EXPECT_EQ(left.out, "2\n");
  EXPECT_THAT(left.err, HasSubstr("orderdesk: cannot write standard output: Broken pipe\n"));
  // With all streams closed no file gets their numbers, and with them what is not for it.
  char const *const refusing = "$desk --quiet --to siac $data/broken_orders.txt --rejects ";
  EXPECT_EQ(shell(std::string(refusing) + "rejects").status, 1);
  EXPECT_EQ(shell(std::string(refusing) + "bare <&- >&- 2>&-").status, 2);
  EXPECT_EQ(read("bare"), read("rejects"));
}

TEST_F(OrderDesk, TakesWhateverAFileHolds) {
  std::string const hostile[] = {
      std::string(1, '\0'),
      std::string(3'000'000, '|'),
      std::string(3'000'000, 'x') + "\nBUY",
      wire("8=FIX.4.4~9=99999999999999999999~35=D~10=000~"),
      wire("8=FIX.4.4~9=0~35=D~10=000~"),
      wire("10001=~10002=1~~"),
      "8=FIX",
      "ORD1",
      "#reject failures=1 xml=18446744073709551615 bytes=18446744073709551615 line=1 column=1 source=x\n",
      "#reject failures=",
      "AB 0001 03152024\nBUY",
      "\xff\xfe\n\n\x80",
  };
  for (std::string const &bytes : hostile) {
    write("file", bytes);
    Outcome const done = run("--collect --explain --samples --rejects rejects --to xml file");
    EXPECT_EQ(done.status, 1) << bytes.substr(0, 60);
    EXPECT_EQ(done.out, "<Orders>\n</Orders>\n");
    EXPECT_EQ(run("--collect --rejects again rejects").status, 1);
    EXPECT_TRUE(read("again") == read("rejects")) << bytes.substr(0, 60);
  }
}

TEST_F(OrderDesk, ShowsHelpAndVersion) {
  EXPECT_THAT(run("--help").out, testing::StartsWith("usage: orderdesk [options] FILE...\n"));
  EXPECT_THAT(run("--version").out, MatchesRegex("orderdesk of tavronert64 [0-9.]+\n(.* [0-9.]+\n)+"));
  EXPECT_EQ(shell("$desk --help >/dev/full").status, 2);
}

}  // namespace

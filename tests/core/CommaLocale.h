#pragma once

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace tavrone {

// Puts the process under a locale that writes "1,5" while it lives, made by localedef in a temporary folder.
class CommaLocale {
 public:
  CommaLocale() : before_(std::setlocale(LC_NUMERIC, nullptr)) {
    char folder[] = "/tmp/tavrone-locale-XXXXXX";
    if (mkdtemp(folder) == nullptr) return;
    folder_ = folder;
    std::ofstream(folder_ / "source")
        << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
    std::string const command = "localedef -c -i " + (folder_ / "source").string() + " " + (folder_ / "comma").string();
    // It warns of the categories that are left out, and says so in its result: what counts is whether the locale works.
    [[maybe_unused]] int const result = std::system((command + " >/dev/null 2>&1").c_str());
    setenv("LOCPATH", folder_.c_str(), 1);
    active_ = std::setlocale(LC_NUMERIC, "comma") != nullptr && std::strcmp(std::localeconv()->decimal_point, ",") == 0;
  }
  ~CommaLocale() {
    std::setlocale(LC_NUMERIC, before_.c_str());
    if (folder_.empty()) return;
    unsetenv("LOCPATH");
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  CommaLocale(CommaLocale const &) = delete;
  CommaLocale &operator=(CommaLocale const &) = delete;

  bool active() const { return active_; }

 private:
  std::string before_;
  std::filesystem::path folder_;
  bool active_ = false;
};

}  // namespace tavrone

# shellcheck shell=bash
# Sourced by the scripts beside it: what they share. Installs what is missing, configures and builds presets.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

missing=()

# need <Debian package> <command that succeeds where it is installed>
need() {
  local package=$1
  shift
  "$@" >/dev/null 2>&1 </dev/null || missing+=("$package")
}

cmake_knows_presets() {
  local version
  version=$(cmake --version | awk 'NR == 1 { print $3 }') && printf '3.25\n%s\n' "$version" | sort -VC
}

has_header() { printf '#include <%s>\n' "$1" | "${CXX:-c++}" -std=c++20 -E -x c++ -; }

find_missing() {
  missing=()
  need g++ command -v "${CXX:-c++}"
  need cmake cmake_knows_presets
  need ninja-build command -v ninja
  need pkg-config command -v pkg-config
  need libgtest-dev has_header gtest/gtest.h
  need libgmock-dev has_header gmock/gmock.h
  case " $* " in *" coverage "*) need gcovr command -v gcovr ;; esac
  case " $* " in *" valgrind "*) need valgrind command -v valgrind ;; esac
  case " $* " in *" benchmarks "*)
    need libbenchmark-dev has_header benchmark/benchmark.h
    need python3 command -v python3
    # The peers.
    need libquickfix-dev has_header quickfix/FieldMap.h
    need libboost-dev has_header boost/multiprecision/cpp_dec_float.hpp
    need libpugixml-dev has_header pugixml.hpp
    need libprotobuf-dev has_header google/protobuf/message.h
    need protobuf-compiler command -v protoc
    ;;
  esac
  case " $* " in *" analysis "*)
    need clang command -v clang++
    need clang-tidy command -v clang-tidy
    need cppcheck command -v cppcheck
    ;;
  esac
  case " $* " in *" fuzzers "*)
    need clang command -v clang++
    need libclang-rt-dev has_libfuzzer
    ;;
  esac
}

has_libfuzzer() {
  [ -f "$(clang++ -print-file-name=libclang_rt.fuzzer-x86_64.a)" ] ||
    [ -f "$(clang++ -print-runtime-dir)/libclang_rt.fuzzer-x86_64.a" ]
}

# install_needs [benchmarks] [coverage] [analysis] [fuzzers] [valgrind]: what every build needs, and what the named ones need
# on top.
install_needs() {
  find_missing "$@"
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then as_root=(sudo -n); fi
  if command -v apt-get >/dev/null && "${as_root[@]}" true 2>/dev/null; then
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get -qq update || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq install -y --no-install-recommends "${missing[@]}" \
      </dev/null
    find_missing "$@"
    [ ${#missing[@]} -eq 0 ] && return
  fi
  echo "This needs the Debian packages ${missing[*]} (CMake 3.25 or newer), and may not install them here. Type" >&2
  echo "  sudo apt-get install ${missing[*]}" >&2
  exit 1
}

# build <preset> [target...]
build() {
  local preset=$1
  shift
  if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
  cmake --preset "$preset"
  cmake --build --preset "$preset" ${1:+--target "$@"}
}

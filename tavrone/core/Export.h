#pragma once

// TAVRONE_API marks what the shared library exports; everything else has hidden visibility.
#define TAVRONE_API __attribute__((visibility("default")))

// The same for what only tests and benchmarks of this project reach; no part of the interface.
#define TAVRONE_TEST_API TAVRONE_API

// The slow branch of an inline operation: kept out of line, so that the fast path stays small.
#define TAVRONE_COLD __attribute__((noinline, cold))

#pragma once

// TAVRONE_API marks what the shared library exports; everything else has hidden visibility.
#define TAVRONE_API __attribute__((visibility("default")))

// The slow branch of an inline operation: kept out of line, so that the fast path stays small.
#define TAVRONE_COLD __attribute__((noinline, cold))

#pragma once

#include "tests/page/Page.h"

namespace tavrone {

class FormulaPage : public testing::Test {};

}  // namespace tavrone

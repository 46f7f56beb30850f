#include "tests/program.h"

#include <gtest/gtest.h>

namespace {}  // namespace

#pragma once

// What became of each file that a retrieval considered; every room reports to it, so it lies in the
// room below them all.
#include "docparser/shared/LoadAccount.hpp"

// Boost.JSON as a part of the library. Callers pass values of their own Boost.JSON, which must be
// of the same release; DocResourceParser.hpp checks that.

#include <boost/json/src.hpp>

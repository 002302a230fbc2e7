// Compiles Boost.JSON into the library. Callers pass values of their own Boost.JSON, which must be
// the same release; DocResourceParser.hpp checks that.

#include <boost/json/src.hpp>

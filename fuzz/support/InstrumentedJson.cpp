// The JSON library once more, instrumented: the parser as the system has it tells a fuzzer nothing
// about how far an input came. Linked into the program, it goes before the shared one.

#include <boost/json/src.hpp>

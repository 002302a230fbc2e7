# What the compiler writes by itself is not described, and not listed either.
s/^.* = default;$//

# Private members are not described.
/^private:$/,/^};$/{/^};$/!d}
# What the compiler writes by itself is not described, and not listed either.
s/^.* = default;$//

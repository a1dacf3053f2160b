# What Doxygen is to read of a sample: the lines between indented marks begin at the left edge.

/^    \/\/! \[/ { inside = !inside }
inside { sub(/^    /, "") }
{ print }

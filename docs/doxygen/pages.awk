# What Doxygen is to read of a page: it would take the "%" of "%s" for a sign of its own. In the tree of pages "libwidget" is
# all of them.

{ gsub(/%[sdu]/, "%&") }
FILENAME ~ /README\.md$/ && FNR == 1 { sub(/libwidget/, "README") }
{ print }

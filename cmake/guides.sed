#!/usr/bin/sed -Ef
# Turns the links of a guide into links within the reference, and removes those to files that are not part of it.
s#\]\((\.\./)?common/src/([A-Za-z]+/)*([A-Za-z]+\.h)\)#](@ref \3)#g
s#\]\(([A-Za-z/-]+\.md)\#[^)]*\)#](\1)#g
s#\[([^]]*)\]\((\.\./)?((examples|tests|benchmarks)[^)]*|common/src|docs|LICENSE|CHANGELOG\.md)\)#\1#g

# Lists the virtual operations of a dump: class, place in the table of virtual operations, linker's name.
# First pass over a stored list (where one is given): only classes that it names are listed.
BEGIN { FS = "'" }
FILENAME ~ /[.]virtuals$/ { split($0, columns, " "); known[columns[1]] = 1; filtered = 1; next }
/<class-decl / && !/\/>$/ { name = $2; gsub(" ", "", name); classes[++depth] = name }
/<\/class-decl>/ { --depth }
/<member-function / { place = match($0, /vtable-offset='[0-9]+'/) ? substr($0, RSTART + 15, RLENGTH - 16) : "" }
/<function-decl / && place != "" {
  if (match($0, /mangled-name='[^']+'/) && (!filtered || classes[depth] in known))
    print classes[depth], place, substr($0, RSTART + 14, RLENGTH - 15)
  place = ""
}

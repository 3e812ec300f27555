# Doxygen's input filter: shows it the plain comments of the headers as documentation.
#
#   // text     above a declaration becomes ///, and ///< behind one on its line. Lines that are indented further, other
#               than those of a list, are laid out as they stand.
#   // text     with an empty line below it, outside of classes, is about the file.
#
# A comment is about all declarations below it up to an empty line or the next comment: those without one of their own
# become overloads of the first, or refer to it. Comments inside functions stay plain. The words are text: Doxygen finds
# no command and no tag in them. Lines keep their numbers, but for those around laid out text.
#
# Pages (*.md) keep links to other pages alone, since nothing else is where the page is read.

# Text, but for what stands in backquotes, which Doxygen leaves alone.
function literal(text,    parts, n, i, result) {
  n = split(text, parts, "`")
  for (i = 1; i <= n; ++i) {
    if (i % 2 || i == n) gsub(/[\\@<>&#%*$"]/, "\\\\&", parts[i])
    result = result (i > 1 ? "`" : "") parts[i]
  }
  return result
}

# Doxygen takes a single quote for the end of a code span, unless the span stands in doubled backquotes.
function page_line(line,    parts, n, i, result, link, split_at) {
  n = split(line, parts, "`")
  for (i = 1; i <= n; ++i) {
    result = result (i % 2 || i == n || parts[i] !~ /'/ ? parts[i] : "`" parts[i] "`") (i < n ? "`" : "")
  }
  line = result
  result = ""
  while (match(line, /\[[^]]*\]\([^)]*\)/)) {
    link = substr(line, RSTART, RLENGTH)
    split_at = index(link, "](")
    if (link !~ /\.(md|svg)\)$|\(https?:/) link = substr(link, 2, split_at - 2)
    result = result substr(line, 1, RSTART - 1) link
    line = substr(line, RSTART + RLENGTH)
  }
  return result line
}

# The line's code, with its texts and characters blanked out and without its comment.
function code_of(line,    at) {
  while (match(line, /"([^"\\]|\\.)*"|'([^'\\]|\\.)+'/)) {
    line = substr(line, 1, RSTART - 1) sprintf("%" RLENGTH "s", "") substr(line, RSTART + RLENGTH)
  }
  at = index(line, "//")
  return at ? substr(line, 1, at - 1) : line
}

# Follows the braces: what they enclose is code, unless a class, an enum or a namespace opened them.
function follow(code,    i, c) {
  if (code ~ /^ *(template *<[^()]*> *)?(inline +)?(class|struct|union|enum|namespace)( |$)/) declares = 1
  for (i = 1; i <= length(code); ++i) {
    c = substr(code, i, 1)
    if (c == "{") {
      kind[++depth] = !declares ? "code" : code ~ /namespace/ ? "namespace" : "class"
      declares = 0
      if (kind[depth] == "code") ++in_code
      if (kind[depth] == "class") ++in_class
    } else if (c == "}") {
      if (kind[depth] == "code") --in_code
      if (kind[depth] == "class") --in_class
      if (depth) --depth
    } else if (c == ";") {
      declares = 0
    }
  }
}

# The function that a declaration declares; empty for anything else, calls of macros among them.
function function_in(code,    name) {
  if (code ~ /(^| )(class|struct|union|enum|namespace|using|friend|typedef) /) return ""
  if (match(code, /operator *[^( ]+ *\(/)) return substr(code, RSTART, RLENGTH - 1)
  while (match(code, /~?[A-Za-z_][A-Za-z0-9_]*\(/)) {
    name = substr(code, RSTART, RLENGTH - 1)
    if (name ~ /^[A-Z_]+$/) return ""
    if (name != "requires" && name != "noexcept" && name != "decltype") return name
    code = substr(code, RSTART + RLENGTH)
  }
  return ""
}

# The block of comment lines that the line below ends.
function end_block(below,    i, text, plain, as_is, indented, in_list) {
  plain = in_code || below ~ /^ *(}|public:|protected:|private:|#include|namespace)/ || (in_class && below == "")
  if (!plain && below == "") print "/// @file"
  for (i = 1; i <= lines; ++i) {
    if (plain || block[i] ~ /clang-format o/) {
      print block[i]
      continue
    }
    text = block[i]
    sub(/^ *\/\/ ?/, "", text)
    in_list = text ~ /^ *- / || (in_list && text ~ /^ /)
    indented = text ~ /^  / && !in_list
    if (indented && !as_is) print "/// @code{.unparsed}"
    if (!indented && as_is) print "/// @endcode"
    as_is = indented
    print "/// " (as_is ? text : literal(text))
  }
  if (as_is) print "/// @endcode"
  lines = 0
  return !plain
}

# The lines of one declaration, of which the last is here. `run` names the function that the comment above is about.
function end_declaration(    i, name, prefix) {
  name = function_in(statement)
  if (name == "") run = ""
  else if (commented) run = name
  else if (run != "" && name !~ /^~/ && statement !~ / (override|final)|= (default|delete)/) prefix = run == name ? "/** @overload */ " : "/** @see " run "() */ "
  for (i = 1; i <= held; ++i) print (i == 1 ? prefix : "") hold[i]
  held = 0
  statement = ""
  commented = 0
}

FILENAME ~ /\.md$/ {
  print page_line($0)
  next
}

/^ *\/\// && !held {
  block[++lines] = $0
  next
}

{
  if (lines) commented = end_block($0)
  code = code_of($0)
  if (in_macro || code ~ /^ *(#|$)/ || in_code) {
    if (held) end_declaration()
    if (!in_code) run = ""
    in_macro = code ~ /^ *#/ || in_macro ? $0 ~ /\\$/ : 0
    print
    if (!in_macro && code !~ /^ *#/) follow(code)
    next
  }
  sub(/ noexcept\(false\)/, "")  # Doxygen would call it noexcept
  code = code_of($0)
  behind = substr($0, length(code) + 1)
  line = behind ~ /^\/\/ / && code !~ /^ *}/ ? code "///< " literal(substr(behind, 4)) : $0
  hold[++held] = line
  statement = statement " " code
  follow(code)
  if (in_code || code ~ /[;{}:] *$/ || behind ~ /^\/\// || statement ~ /^ *[A-Z_]+\(.*\) *$/) end_declaration()
}

END {
  if (held) end_declaration()
}

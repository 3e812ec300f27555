# Pages as lists of lines. A list parts at semicolons, unless brackets hold them together, so both stand in the lines as
# other characters until page_text puts them back.
string(ASCII 1 page_semicolon)
string(ASCII 2 page_opening)
string(ASCII 3 page_closing)

# Sets `lines` to the lines of the page, each with a blank behind it, so that none is empty.
function(page_lines page lines)
  file(READ ${page} text)
  string(REPLACE ";" "${page_semicolon}" text "${text}")
  string(REPLACE "[" "${page_opening}" text "${text}")
  string(REPLACE "]" "${page_closing}" text "${text}")
  string(REPLACE "\n" " ;" text "${text}")
  set(${lines} "${text}" PARENT_SCOPE)
endfunction()

# Puts the text of lines back into what it was, within the variable.
function(page_text text)
  set(result "${${text}}")
  string(REPLACE "${page_semicolon}" ";" result "${result}")
  string(REPLACE "${page_opening}" "[" result "${result}")
  string(REPLACE "${page_closing}" "]" result "${result}")
  set(${text} "${result}" PARENT_SCOPE)
endfunction()

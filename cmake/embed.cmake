# Writes a C++ source that holds a text file as `extern const std::string_view NAME` in the
# namespace xmi::built_in. Compilers limit the length of one literal, so the text goes in as pieces.

file(READ ${INPUT} text)
string(LENGTH "${text}" length)
set(pieces)
set(position 0)
while(position LESS length)
  string(SUBSTRING "${text}" ${position} 8000 piece)
  string(APPEND pieces "R\"idlexport(${piece})idlexport\"\n")
  math(EXPR position "${position} + 8000")
endwhile()
file(WRITE ${OUTPUT} "#include <string_view>\n\nnamespace xmi::built_in {\n\n\
extern const std::string_view ${NAME};\n\
const std::string_view ${NAME} =\n${pieces};\n\n}  // namespace xmi::built_in\n")

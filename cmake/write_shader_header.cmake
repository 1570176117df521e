# Writes the text of SOURCE to HEADER as the character array embedded::SYMBOL. Run by embed_shaders.
file(READ "${SOURCE}" text)
file(WRITE "${HEADER}.new" "// Made from the GLSL file of this name at build time.\n#pragma once\n\nnamespace embedded {\ninline constexpr char ${SYMBOL}[] = R\"glsl(${text})glsl\";\n}\n")
file(RENAME "${HEADER}.new" "${HEADER}")

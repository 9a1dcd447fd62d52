# cmake -D input=FILE -D output=FILE.cpp -D name=NAME -P Embed.cmake
# Writes a source file that defines vexmoor::NAME, an array with the bytes of a file.
file(READ ${input} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
file(WRITE ${output} "namespace vexmoor {\nextern const unsigned char ${name}[];\n"
                     "const unsigned char ${name}[] = {${bytes}};\n} // namespace vexmoor\n")

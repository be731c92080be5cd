# cmake -DREADME=… -DOUTPUT=… -P ExtractExample.cmake: writes the first C++ block of README to OUTPUT.

file(READ "${README}" text)
string(FIND "${text}" "```cpp\n" start)
if(start EQUAL -1)
    message(FATAL_ERROR "${README} has no C++ example")
endif()
math(EXPR start "${start} + 7")
string(SUBSTRING "${text}" ${start} -1 text)
string(FIND "${text}" "```" length)
string(SUBSTRING "${text}" 0 ${length} text)
file(WRITE "${OUTPUT}" "${text}")

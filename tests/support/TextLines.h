#pragma once
// The lines of a text, without their line feeds, for tests that compare
// what a program printed or wrote line by line.

#include <sstream>
#include <string>
#include <vector>

inline std::vector<std::string> TextLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

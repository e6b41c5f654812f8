#pragma once
// The units a C++Builder project file lists: the XML-like ".bpr" (and
// ".bpk") of the suite's IDE generation, with one
//     <FILE FILENAME="Unit1.cpp" FORMNAME="Form1" UNITNAME="Unit1" .../>
// per file, and the MSBuild ".cbproj" of later ones, with items such as
//     <CppCompile Include="Unit1.cpp"><Form>Form1</Form></CppCompile>.

#include "rtl/SysUtils.h"

#include <string_view>
#include <vector>

struct TProjectFileEntry {
    AnsiString FileName;   // as the project writes it, '\' turned into '/'
    AnsiString FormName;   // empty when the project names no form
    AnsiString UnitName;   // empty when the project does not say
    int Line = 0;          // where the entry starts in the project file
};

// Every file the project lists, in its order. A file that is not well
// formed (an unterminated tag, comment or quoted value) raises
// ETextParseError whose message starts with source and the line.
std::vector<TProjectFileEntry> ParseProjectFile(std::string_view text, const AnsiString& source);
std::vector<TProjectFileEntry> ReadProjectFile(const AnsiString& fileName);

// ".bpr", ".bpk" or ".cbproj", in any case.
bool IsProjectFileName(const AnsiString& fileName);

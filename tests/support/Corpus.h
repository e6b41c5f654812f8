#pragma once
// The real form files the tests read: where they are and what SOURCES.tsv
// says of each.

#include <string>
#include <vector>

struct TCorpusFile {
    std::string Path;    // relative to the corpus's dfm folder
    std::string Format;  // text, resource, binary or project
    std::string FullPath() const;
};

std::string CorpusDir();  // the dfm folder
std::vector<TCorpusFile> CorpusFiles();
std::string ReadCorpusFile(const TCorpusFile& file);

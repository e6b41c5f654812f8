#include "support/Corpus.h"

#include "rtl/Streams.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

std::string CorpusDir()
{
    const char* env = std::getenv("QZ_CORPUS_DIR");
    return std::string(env && *env ? env : QZ_CORPUS_DIR) + "/dfm";
}

std::string TCorpusFile::FullPath() const
{
    return CorpusDir() + "/" + Path;
}

std::vector<TCorpusFile> CorpusFiles()
{
    std::vector<TCorpusFile> files;
    std::ifstream in(CorpusDir() + "/SOURCES.tsv");
    std::string line;
    std::getline(in, line);  // column names
    while (std::getline(in, line)) {
        std::vector<std::string> cols;
        std::stringstream ss(line);
        std::string col;
        while (std::getline(ss, col, '\t'))
            cols.push_back(col);
        if (cols.size() >= 6)
            files.push_back({cols[0], cols[5]});
    }
    return files;
}

std::string ReadCorpusFile(const TCorpusFile& file)
{
    return ReadFileBytes(file.FullPath());
}

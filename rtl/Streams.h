#pragma once
// Byte streams: the abstract TStream with the helpers the filer needs, an
// in-memory stream and a file stream.

#include "rtl/SysUtils.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

enum TSeekOrigin { soBeginning, soCurrent, soEnd };

class TStream {
public:
    virtual ~TStream() = default;

    // Reads up to count bytes; returns how many were read.
    virtual Int64 Read(void* buffer, Int64 count) = 0;
    virtual Int64 Write(const void* buffer, Int64 count) = 0;
    virtual Int64 Seek(Int64 offset, TSeekOrigin origin) = 0;

    Int64 GetPosition() { return Seek(0, soCurrent); }
    void SetPosition(Int64 pos) { Seek(pos, soBeginning); }
    virtual Int64 GetSize();
    virtual void SetSize(Int64 newSize);

    // Raise EReadError / EWriteError when fewer bytes move than asked for.
    void ReadBuffer(void* buffer, Int64 count);
    void WriteBuffer(const void* buffer, Int64 count);
    void WriteString(const std::string& bytes) { WriteBuffer(bytes.data(), Int64(bytes.size())); }
    // Copies count bytes from source (all of it from the start when count is 0).
    Int64 CopyFrom(TStream& source, Int64 count);
    // The rest of the stream from the current position.
    std::string ReadRemaining();
};

class TMemoryStream : public TStream {
public:
    TMemoryStream() = default;
    explicit TMemoryStream(std::string bytes) : FData(std::move(bytes)) {}

    Int64 Read(void* buffer, Int64 count) override;
    Int64 Write(const void* buffer, Int64 count) override;
    Int64 Seek(Int64 offset, TSeekOrigin origin) override;
    Int64 GetSize() override { return Int64(FData.size()); }
    void SetSize(Int64 newSize) override;

    const char* Memory() const { return FData.data(); }
    const std::string& Bytes() const { return FData; }
    std::string TakeBytes();
    void Clear();
    void LoadFromStream(TStream& stream);
    void SaveToStream(TStream& stream);
    void LoadFromFile(const AnsiString& fileName);
    void SaveToFile(const AnsiString& fileName);

private:
    std::string FData;
    Int64 FPosition = 0;
};

// A stream over a caller's bytes that reads without copying them.
class TReadOnlyMemoryStream : public TStream {
public:
    TReadOnlyMemoryStream(const void* data, Int64 size)
        : FData(static_cast<const char*>(data)), FSize(size) {}
    explicit TReadOnlyMemoryStream(const std::string& bytes)
        : TReadOnlyMemoryStream(bytes.data(), Int64(bytes.size())) {}

    Int64 Read(void* buffer, Int64 count) override;
    Int64 Write(const void* buffer, Int64 count) override;
    Int64 Seek(Int64 offset, TSeekOrigin origin) override;
    Int64 GetSize() override { return FSize; }

private:
    const char* FData;
    Int64 FSize;
    Int64 FPosition = 0;
};

enum : Word {
    fmOpenRead = 0x0000,
    fmOpenWrite = 0x0001,
    fmOpenReadWrite = 0x0002,
    fmCreate = 0xFF00,
};

class TFileStream : public TStream {
public:
    // mode: fmCreate, or one of fmOpenRead/fmOpenWrite/fmOpenReadWrite.
    TFileStream(const AnsiString& fileName, Word mode);
    ~TFileStream() override;
    TFileStream(const TFileStream&) = delete;
    TFileStream& operator=(const TFileStream&) = delete;

    Int64 Read(void* buffer, Int64 count) override;
    Int64 Write(const void* buffer, Int64 count) override;
    Int64 Seek(Int64 offset, TSeekOrigin origin) override;
    void SetSize(Int64 newSize) override;
    const AnsiString& FileName() const { return FFileName; }

private:
    AnsiString FFileName;
    int FHandle = -1;
};

// Whole-file helpers used by loaders and savers.
std::string ReadFileBytes(const AnsiString& fileName);

// A file's bytes without a copy: a regular file is mapped read-only (its
// pages taken from the system's cache in one call), anything else is read.
// For a program that reads a large file once; the bytes live as long as the
// object.
class TMappedFile {
public:
    explicit TMappedFile(const AnsiString& fileName);
    ~TMappedFile();
    TMappedFile(const TMappedFile&) = delete;
    TMappedFile& operator=(const TMappedFile&) = delete;
    std::string_view Bytes() const { return FBytes; }

private:
    void* FMapping = nullptr;
    size_t FSize = 0;
    std::string FRead;
    std::string_view FBytes;
};
// Writes beside the target and renames over it, so a failed save leaves
// the old file whole. With backupName non-empty the previous file is kept
// under that name. Durable waits until the bytes are on the disk before the
// rename, so that not even a power cut loses both versions; a file that can
// be made again from another (a conversion's output) need not wait.
void WriteFileAtomic(const AnsiString& fileName, const std::string& bytes,
                     const AnsiString& backupName = {}, bool durable = true);

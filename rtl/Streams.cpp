#include "rtl/Streams.h"

#include <algorithm>
#include <utility>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

Int64 TStream::GetSize()
{
    Int64 pos = Seek(0, soCurrent);
    Int64 size = Seek(0, soEnd);
    Seek(pos, soBeginning);
    return size;
}

void TStream::SetSize(Int64)
{
    throw EStreamError("Stream size cannot be changed");
}

void TStream::ReadBuffer(void* buffer, Int64 count)
{
    if (count > 0 && Read(buffer, count) != count)
        throw EReadError("Stream read error");
}

void TStream::WriteBuffer(const void* buffer, Int64 count)
{
    if (count > 0 && Write(buffer, count) != count)
        throw EWriteError("Stream write error");
}

Int64 TStream::CopyFrom(TStream& source, Int64 count)
{
    if (count == 0) {
        source.SetPosition(0);
        count = source.GetSize();
    }
    char buf[65536];
    Int64 left = count;
    while (left > 0) {
        Int64 n = std::min<Int64>(left, sizeof buf);
        source.ReadBuffer(buf, n);
        WriteBuffer(buf, n);
        left -= n;
    }
    return count;
}

std::string TStream::ReadRemaining()
{
    Int64 pos = GetPosition();
    Int64 size = GetSize();
    std::string out(size_t(std::max<Int64>(0, size - pos)), '\0');
    ReadBuffer(out.data(), Int64(out.size()));
    return out;
}

// ---- TMemoryStream -------------------------------------------------------

Int64 TMemoryStream::Read(void* buffer, Int64 count)
{
    Int64 n = std::clamp<Int64>(Int64(FData.size()) - FPosition, 0, std::max<Int64>(count, 0));
    if (n > 0)
        std::memcpy(buffer, FData.data() + FPosition, size_t(n));
    FPosition += n;
    return n;
}

Int64 TMemoryStream::Write(const void* buffer, Int64 count)
{
    if (count <= 0)
        return 0;
    Int64 end = FPosition + count;
    if (end > Int64(FData.size()))
        FData.resize(size_t(end));
    std::memcpy(FData.data() + FPosition, buffer, size_t(count));
    FPosition = end;
    return count;
}

Int64 TMemoryStream::Seek(Int64 offset, TSeekOrigin origin)
{
    Int64 base = origin == soBeginning ? 0 : origin == soCurrent ? FPosition : Int64(FData.size());
    FPosition = std::max<Int64>(0, base + offset);
    return FPosition;
}

void TMemoryStream::SetSize(Int64 newSize)
{
    FData.resize(size_t(std::max<Int64>(0, newSize)));
    FPosition = std::min(FPosition, Int64(FData.size()));
}

std::string TMemoryStream::TakeBytes()
{
    FPosition = 0;
    return std::exchange(FData, {});
}

void TMemoryStream::Clear()
{
    FData.clear();
    FPosition = 0;
}

void TMemoryStream::LoadFromStream(TStream& stream)
{
    stream.SetPosition(0);
    FData = stream.ReadRemaining();
    FPosition = 0;
}

void TMemoryStream::SaveToStream(TStream& stream)
{
    stream.WriteBuffer(FData.data(), Int64(FData.size()));
}

void TMemoryStream::LoadFromFile(const AnsiString& fileName)
{
    FData = ReadFileBytes(fileName);
    FPosition = 0;
}

void TMemoryStream::SaveToFile(const AnsiString& fileName)
{
    WriteFileAtomic(fileName, FData);
}

// ---- TReadOnlyMemoryStream ----------------------------------------------

Int64 TReadOnlyMemoryStream::Read(void* buffer, Int64 count)
{
    Int64 n = std::clamp<Int64>(FSize - FPosition, 0, std::max<Int64>(count, 0));
    if (n > 0)
        std::memcpy(buffer, FData + FPosition, size_t(n));
    FPosition += n;
    return n;
}

Int64 TReadOnlyMemoryStream::Write(const void*, Int64)
{
    throw EWriteError("Stream is read-only");
}

Int64 TReadOnlyMemoryStream::Seek(Int64 offset, TSeekOrigin origin)
{
    Int64 base = origin == soBeginning ? 0 : origin == soCurrent ? FPosition : FSize;
    FPosition = std::max<Int64>(0, base + offset);
    return FPosition;
}

// ---- TFileStream ---------------------------------------------------------

namespace {

AnsiString SystemError(const char* what, const AnsiString& fileName)
{
    return AnsiString(what) + " " + fileName + ". " + std::strerror(errno);
}

} // namespace

TFileStream::TFileStream(const AnsiString& fileName, Word mode) : FFileName(fileName)
{
    if (mode == fmCreate) {
        FHandle = ::open(fileName.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (FHandle < 0)
            throw EFCreateError(SystemError("Cannot create file", fileName));
        return;
    }
    int flags = (mode & 3) == fmOpenWrite ? O_WRONLY : (mode & 3) == fmOpenReadWrite ? O_RDWR : O_RDONLY;
    FHandle = ::open(fileName.c_str(), flags | O_CLOEXEC);
    if (FHandle < 0)
        throw EFOpenError(SystemError("Cannot open file", fileName));
}

TFileStream::~TFileStream()
{
    if (FHandle >= 0)
        ::close(FHandle);
}

Int64 TFileStream::Read(void* buffer, Int64 count)
{
    Int64 done = 0;
    while (done < count) {
        ssize_t n = ::read(FHandle, static_cast<char*>(buffer) + done, size_t(count - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += n;
    }
    return done;
}

Int64 TFileStream::Write(const void* buffer, Int64 count)
{
    Int64 done = 0;
    while (done < count) {
        ssize_t n = ::write(FHandle, static_cast<const char*>(buffer) + done, size_t(count - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += n;
    }
    return done;
}

Int64 TFileStream::Seek(Int64 offset, TSeekOrigin origin)
{
    int whence = origin == soBeginning ? SEEK_SET : origin == soCurrent ? SEEK_CUR : SEEK_END;
    off_t r = ::lseek(FHandle, off_t(offset), whence);
    if (r < 0)
        throw EStreamError(SystemError("Cannot seek in file", FFileName));
    return Int64(r);
}

void TFileStream::SetSize(Int64 newSize)
{
    if (::ftruncate(FHandle, off_t(newSize)) != 0)
        throw EStreamError(SystemError("Cannot resize file", FFileName));
}

// ---- whole files -----------------------------------------------------------

std::string ReadFileBytes(const AnsiString& fileName)
{
    const int fd = ::open(fileName.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        throw EFOpenError(SystemError("Cannot open file", fileName));
    // A regular file is read into a buffer of its size at once; a pipe, or
    // a file still growing, is read on to its end.
    struct stat st {};
    std::string out;
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode))
        out.reserve(size_t(st.st_size));
    char buf[65536];
    for (;;) {
        const size_t room = out.capacity() - out.size();
        const size_t start = out.size();
        ssize_t n;
        if (room > 0) {
            out.resize(out.capacity());
            n = ::read(fd, out.data() + start, room);
            out.resize(start + size_t(std::max<ssize_t>(n, 0)));
        } else {
            n = ::read(fd, buf, sizeof buf);
            if (n > 0)
                out.append(buf, size_t(n));
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            const AnsiString msg = SystemError("Cannot read file", fileName);
            ::close(fd);
            throw EReadError(msg);
        }
        if (n == 0)
            break;
    }
    ::close(fd);
    return out;
}

TMappedFile::TMappedFile(const AnsiString& fileName)
{
    const int fd = ::open(fileName.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        throw EFOpenError(SystemError("Cannot open file", fileName));
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        errno = EISDIR;
        throw EFOpenError(SystemError("Cannot read file", fileName));
    }
    if (S_ISREG(st.st_mode) && st.st_size > 0) {
        void* mapping = ::mmap(nullptr, size_t(st.st_size), PROT_READ, MAP_PRIVATE | MAP_POPULATE, fd, 0);
        if (mapping != MAP_FAILED) {
            FMapping = mapping;
            FSize = size_t(st.st_size);
            FBytes = std::string_view(static_cast<const char*>(mapping), FSize);
        }
    }
    ::close(fd);
    if (!FMapping) {
        FRead = ReadFileBytes(fileName);
        FBytes = FRead;
    }
}

TMappedFile::~TMappedFile()
{
    if (FMapping)
        ::munmap(FMapping, FSize);
}

void WriteFileAtomic(const AnsiString& fileName, const std::string& bytes, const AnsiString& backupName,
                     bool durable)
{
    AnsiString temp = fileName + ".tmp~";
    {
        int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (fd < 0)
            throw EFCreateError(SystemError("Cannot create file", fileName));
        size_t done = 0;
        while (done < bytes.size()) {
            ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0) {
                AnsiString msg = SystemError("Cannot write file", fileName);
                ::close(fd);
                ::unlink(temp.c_str());
                throw EWriteError(msg);
            }
            done += size_t(n);
        }
        if ((durable && ::fsync(fd) != 0) || ::close(fd) != 0) {
            AnsiString msg = SystemError("Cannot write file", fileName);
            ::unlink(temp.c_str());
            throw EWriteError(msg);
        }
    }
    struct stat st {};
    bool existed = ::stat(fileName.c_str(), &st) == 0;
    if (existed) {
        ::chmod(temp.c_str(), st.st_mode & 07777);
        if (!backupName.empty()) {
            ::unlink(backupName.c_str());
            if (::link(fileName.c_str(), backupName.c_str()) != 0) {
                AnsiString msg = SystemError("Cannot keep a backup of", fileName);
                ::unlink(temp.c_str());
                throw EWriteError(msg);
            }
        }
    }
    // Renaming over a file makes ext4 allocate and start writing the new
    // file's blocks at once (its guard for programs that skip fsync), a wait
    // of milliseconds. A file that need not be durable swaps names with the
    // old one instead, which readers see as atomically, and the old one goes.
    if (!durable && existed && S_ISREG(st.st_mode) &&
        ::renameat2(AT_FDCWD, temp.c_str(), AT_FDCWD, fileName.c_str(), RENAME_EXCHANGE) == 0) {
        ::unlink(temp.c_str());
        return;
    }
    if (::rename(temp.c_str(), fileName.c_str()) != 0) {
        AnsiString msg = SystemError("Cannot replace file", fileName);
        ::unlink(temp.c_str());
        throw EWriteError(msg);
    }
}

#pragma once

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

[[noreturn]] inline void endRun(const char *file, int line, const char *broken)
{
    std::fprintf(stderr, "%s:%d: %s does not hold\n", file, line, broken);
    std::abort();
}

/// Aborts if the condition is false, so that the fuzzer keeps the input.
#define MUST(condition) ((condition) ? static_cast<void>(0) : endRun(__FILE__, __LINE__, #condition))

/// A disk on which every file holds the same bytes, in the home directory /home/u.
class OneFile final : public FileSystem
{
public:
    explicit OneFile(QByteArray bytes) : m_bytes(std::move(bytes)) { qputenv("HOME", "/home/u"); }

    std::optional<QByteArray> read(const QString &) override { return m_bytes; }
    bool write(const QString &, const QByteArray &bytes) override
    {
        m_bytes = bytes;
        return true;
    }
    void keepCopy(const QString &, const QStringList &) override {}
    void createDirectory(const QString &) override {}
    void remove(const QString &) override { m_bytes.clear(); }
    bool exists(const QString &) override { return true; }
    bool isDirectory(const QString &) override { return false; }

private:
    QByteArray m_bytes;
    Seam<FileSystem>::Replacement m_replacement{*this};
};

inline QByteArray inputBytes(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), qsizetype(size)};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

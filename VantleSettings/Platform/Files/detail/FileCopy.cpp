#include "Platform/Files/detail/FileCopy.h"

#include "Platform/Files/detail/RegularFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

namespace
{

constexpr qsizetype blockSize = qsizetype{64} * 1024;

/// The file's block at this offset, shorter only at the end of the file. Nothing when it can't be read.
std::optional<QByteArray> blockAt(const RegularFile &file, qint64 offset)
{
    QByteArray block(blockSize, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < blockSize) {
        const qint64 count = file.read(offset + filled, block.data() + filled, blockSize - filled);
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        filled += count;
    }
    block.truncate(filled);
    return block;
}

/// Passes the file block by block to `take`, which returns whether to go on. Returns whether all of the file
/// was passed.
template <class Take>
bool forEachBlock(const RegularFile &file, Take take)
{
    for (qint64 offset = 0;; offset += blockSize) {
        const auto block = blockAt(file, offset);
        if (!block || !take(offset, *block))
            return false;
        if (block->size() < blockSize)
            return true;
    }
}

/// Whether a separate file with the same bytes is at this place. A hard link to the original doesn't count,
/// because it changes with the original.
bool isCopy(const RegularFile &original, const QString &place)
{
    const RegularFile other(place, O_RDONLY | O_NOFOLLOW);
    if (!other.isOpen() || other.isSameAs(original) || other.size() != original.size())
        return false;
    return forEachBlock(
        original, [&](qint64 offset, const QByteArray &block) { return blockAt(other, offset) == block; });
}

enum class Outcome : unsigned char { copied, isTaken, failed };

/// Copies to a place at which nothing is yet, not even a link. A failure leaves nothing there.
Outcome copyTo(const QString &place, const RegularFile &original)
{
    constexpr mode_t ownersOnly = 0600; // until it has the original's permissions
    RegularFile copy(place, O_WRONLY | O_CREAT | O_EXCL, ownersOnly);
    if (!copy.isOpen())
        return errno == EEXIST ? Outcome::isTaken : Outcome::failed;
    const bool isWhole =
        ::fchmod(copy.descriptor(), original.permissions()) == 0 &&
        forEachBlock(original, [&](qint64, const QByteArray &block) { return copy.write(block); });
    if (copy.close() && isWhole)
        return Outcome::copied;
    ::unlink(place.toUtf8().constData());
    return Outcome::failed;
}

} // namespace

void copyToFreePlace(const QString &path, const QStringList &places)
{
    const RegularFile original(path, O_RDONLY);
    const auto isCopied = [&](const QString &place) { return isCopy(original, place); };
    if (!original.isOpen() || original.size() >= fileSizeLimit ||
        std::any_of(places.begin(), places.end(), isCopied))
        return;
    for (const QString &place : places) {
        if (copyTo(place, original) != Outcome::isTaken)
            return;
    }
}

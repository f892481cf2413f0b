#include "Fuzzing.h"

#include <QDirIterator>
#include <QFile>

/// Gives each file below the directories named on the command line to the fuzzer's function once.
int main(int argc, char **argv)
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator files(QString::fromLocal8Bit(argv[i]), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QFile::ReadOnly)) {
                std::fprintf(stderr, "%s can't be read\n", qPrintable(file.fileName()));
                return 1;
            }
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   std::size_t(bytes.size()));
            ++inputs;
        }
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}

// Runs a fuzz target on every file of a folder, for builds without libFuzzer.

#include <cstdint>
#include <cstdio>
#include <QDir>
#include <QDirIterator>
#include <QFile>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    QDirIterator files(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."), QDir::Files);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
            return 1;
        }
        std::fprintf(stderr, "%s\n", qPrintable(file.fileName()));
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(
            reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
        ++count;
    }
    std::fprintf(stderr, "%d inputs\n", count);
    return count > 0 ? 0 : 1;
}

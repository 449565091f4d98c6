#include <importers/ImportFrames.hpp>
#include <limits>
#include <QTest>

namespace {

std::string bytes_of(FrameKind kind, const std::string& payload)
{
    const auto header = frame_header(kind, payload.size());
    return std::string(header.data(), header.size()) + payload;
}

std::string with_byte(std::string bytes, std::size_t position, char value)
{
    bytes.at(position) = value;
    return bytes;
}

} // namespace

class tst_ImportFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frameArrivesAsItWasSent_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("size");

        QTest::newRow("progress") << int(FrameKind::Progress) << 3;
        QTest::newRow("warning") << int(FrameKind::Warning) << 70;
        QTest::newRow("empty warning") << int(FrameKind::Warning) << 0;
        QTest::newRow("longest failure")
            << int(FrameKind::Failure) << int(largest_payload(FrameKind::Failure));
        QTest::newRow("large model") << int(FrameKind::Model) << 3'000'000;
        QTest::newRow("unfinished mesh") << int(FrameKind::UnfinishedMesh) << 100;
        QTest::newRow("mesh") << int(FrameKind::Mesh) << 100;
        QTest::newRow("extent") << int(FrameKind::Extent) << 7;
    }

    void frameArrivesAsItWasSent()
    {
        QFETCH(int, kind);
        QFETCH(int, size);
        const auto payload = std::string(static_cast<std::size_t>(size), 'x');

        FrameReader reader;
        reader.append(bytes_of(static_cast<FrameKind>(kind), payload));
        const auto frame = reader.next();

        QVERIFY(frame);
        QCOMPARE(int(frame->kind), kind);
        QVERIFY(frame->payload == payload);
        QVERIFY(!reader.next());
        QVERIFY(!reader.is_damaged());
    }

    void framesAreFoundHoweverTheirBytesArrive_data()
    {
        QTest::addColumn<int>("piece");

        for (const int piece : {1, 2, 7, 12, 13, 1000}) {
            QTest::addRow("%d bytes at once", piece) << piece;
        }
    }

    void framesAreFoundHoweverTheirBytesArrive()
    {
        QFETCH(int, piece);
        const auto bytes = bytes_of(FrameKind::Warning, "first") +
                           bytes_of(FrameKind::Warning, {}) + bytes_of(FrameKind::Failure, "third");

        FrameReader reader;
        QStringList payloads;
        const auto step = static_cast<std::size_t>(piece);
        for (std::size_t i = 0; i < bytes.size(); i += step) {
            reader.append(std::string_view(bytes).substr(i, step));
            while (const auto frame = reader.next()) {
                payloads << QString::fromStdString(frame->payload);
            }
        }

        QCOMPARE(payloads, QStringList({"first", "", "third"}));
        QVERIFY(!reader.is_damaged());
    }

    void partOfAFrameIsNoFrameYet()
    {
        const auto bytes = bytes_of(FrameKind::Warning, "text");
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            FrameReader reader;
            reader.append(std::string_view(bytes).substr(0, size));
            QVERIFY2(!reader.next(), qPrintable(QString::number(size)));
            QVERIFY2(!reader.is_damaged(), qPrintable(QString::number(size)));
        }
    }

    void damageIsNoticed_data()
    {
        QTest::addColumn<QByteArray>("bytes");

        const auto good = bytes_of(FrameKind::Warning, "text");
        const auto add = [](const char* name, const std::string& bytes) {
            QTest::newRow(name) << QByteArray::fromStdString(bytes);
        };
        add("text instead of a frame", "Reading the file...\n");
        add("wrong mark", with_byte(good, 0, 'X'));
        add("other version", with_byte(good, 4, 2));
        add("kind zero", with_byte(good, 5, 0));
        add("unknown kind", with_byte(good, 5, 8));
        add("largest kind", with_byte(good, 5, '\xff'));
        add("something in the empty bytes", with_byte(good, 6, 1));
        add("more than a warning holds", with_byte(good, 10, 2));
        add("more than a model holds", with_byte(with_byte(good, 5, 4), 11, '\x7f'));
        add("more than progress needs", bytes_of(FrameKind::Progress, "four"));
    }

    void damageIsNoticed()
    {
        QFETCH(QByteArray, bytes);

        FrameReader reader;
        reader.append(bytes_of(FrameKind::Warning, "before"));
        reader.append(bytes.toStdString());

        QVERIFY(reader.next());
        QVERIFY(!reader.next());
        QVERIFY(reader.is_damaged());
        reader.append(bytes_of(FrameKind::Warning, "after"));
        QVERIFY2(!reader.next(), "nothing can be trusted after damage");
    }

    void progressIsKept_data()
    {
        QTest::addColumn<int>("stage");
        QTest::addColumn<double>("sent");
        QTest::addColumn<double>("received");

        QTest::newRow("start") << int(ImportStage::Read) << 0.0 << 0.0;
        QTest::newRow("middle") << int(ImportStage::Transfer) << 0.1234 << 0.1234;
        QTest::newRow("end") << int(ImportStage::RaiseOrder) << 1.0 << 1.0;
        QTest::newRow("unknown") << int(ImportStage::Walk) << -1.0 << -1.0;
        QTest::newRow("past the end") << int(ImportStage::Check) << 1.5 << 1.0;
    }

    void progressIsKept()
    {
        QFETCH(int, stage);
        QFETCH(double, sent);
        QFETCH(double, received);

        const auto progress =
            unpack_progress(pack_progress({static_cast<ImportStage>(stage), sent}));

        QVERIFY(progress);
        QCOMPARE(int(progress->stage), stage);
        QCOMPARE(progress->fraction, received);
    }

    void wrongProgressIsRefused_data()
    {
        QTest::addColumn<QByteArray>("payload");

        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("too short") << QByteArray("\0\0", 2);
        QTest::newRow("too long") << QByteArray("\0\0\0\0", 4);
        QTest::newRow("unknown stage") << QByteArray("\x9\0\0", 3);
        QTest::newRow("fraction above one") << QByteArray("\0\x11\x27", 3);
    }

    void wrongProgressIsRefused()
    {
        QFETCH(QByteArray, payload);

        QVERIFY(!unpack_progress(payload.toStdString()));
    }

    void extentIsKept_data()
    {
        QTest::addColumn<double>("extent");

        QTest::newRow("none") << 0.0;
        QTest::newRow("fraction") << 0.1;
        QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min();
        QTest::newRow("largest") << std::numeric_limits<double>::max();
    }

    void extentIsKept()
    {
        QFETCH(double, extent);

        const auto payload = pack_extent(extent);

        QVERIFY(payload.size() <= largest_payload(FrameKind::Extent));
        QVERIFY(unpack_extent(payload) == extent);
    }

    void wrongExtentIsRefused_data()
    {
        QTest::addColumn<QByteArray>("payload");

        for (const char* const payload : {"", "-1", "inf", "nan", "1 ", "1e999", "large"}) {
            QTest::newRow(payload) << QByteArray(payload);
        }
    }

    void wrongExtentIsRefused()
    {
        QFETCH(QByteArray, payload);

        QVERIFY(!unpack_extent(payload.toStdString()));
    }
};

QTEST_GUILESS_MAIN(tst_ImportFrames)
#include "tst_ImportFrames.moc"

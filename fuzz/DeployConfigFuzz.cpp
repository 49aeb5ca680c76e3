// Fuzz entry point for the deployment file. The input is written as the file
// and read as the hub reads it. Checked for every input: every numeric
// setting the hub uses lies in its range, whatever the file says.
#include "CLmDeployConfig.h"
#include "FuzzCheck.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>

namespace {

struct SRange
{
    const char* key;
    qint64 iMin;
    qint64 iMax;
};

const SRange Ranges[] = {
    {"udp_listen_port", 0, 65535},
    {"serial_baud", 300, 4000000},
    {"heartbeat_timeout_ms", 500, 600000},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("deployment.ini"));
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    file.close();

    const CLmDeployConfig config(path);
    for (const SRange& range : Ranges) {
        bool isNumber = false;
        const qint64 value = config.Value(QStringLiteral("aircraft"), QLatin1String(range.key)).toLongLong(&isNumber);
        require(isNumber && value >= range.iMin && value <= range.iMax);
    }
    return 0;
}

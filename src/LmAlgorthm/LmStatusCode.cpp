#include "LmStatusCode.h"

namespace {

constexpr int kCodesPerWord = 32;
constexpr int kCodesPerReport = 2 * kCodesPerWord;

void AppendSetBits(quint32 bits, int firstCode, QList<int>& codes)
{
    for (int bit = 0; bit < kCodesPerWord; ++bit) {
        if (bits & (quint32(1) << bit))
            codes << firstCode + bit;
    }
}

} // namespace

QList<int> ParseStatusCodeSum(quint8 code_num, quint32 code0, quint32 code1)
{
    const int firstCode = code_num * kCodesPerReport;
    QList<int> codes;
    AppendSetBits(code0, firstCode, codes);
    AppendSetBits(code1, firstCode + kCodesPerWord, codes);
    return codes;
}

#pragma once

#include <QList>

// Failure codes of one SKY_CALIBRATION_FAILURE_CODE report, in ascending
// order. Report code_num carries codes 64 * code_num .. 64 * code_num + 63 as
// a bit set: bit b of code0 is code 64 * code_num + b, bit b of code1 is
// code 64 * code_num + 32 + b.
QList<int> ParseStatusCodeSum(quint8 code_num, quint32 code0, quint32 code1);

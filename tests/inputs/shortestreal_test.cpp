#include "inputs/shortestreal.h"

#include "support/scopedlocale.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace {

QString byLocale(double value)
{
    const QLocale locale;
    return locale.toString(value, 'f', QLocale::FloatingPointShortest).remove(locale.groupSeparator());
}

} // namespace

TEST(ShortestRealWriter, WritesWhatTheLocaleWrites)
{
    QVector<double> values{0.0, 1500, -1500, 0.1, 0.1 + 0.2, 1.0 / 3, -2.5, 1e-5, 9.9999999e-6, 123456789.125,
        1e14 + 0.5, 999999999999999.0, 1e15, 4503599627370495.5, 9007199254740992.0, 1e22, 1e23, -1e300, 5e-324, 1e-7,
        0.000123, 45292.25};
    std::mt19937_64 random(7);
    for (int i = 0; i < 4000; ++i) {
        const quint64 bits = random();
        double any;
        std::memcpy(&any, &bits, sizeof any);
        values.append(any);
        values.append(static_cast<double>(static_cast<qint64>(bits) >> (bits & 63)) / std::pow(10, bits >> 8 & 7));
        values.append(std::ldexp(static_cast<double>(bits >> 11), -static_cast<int>(bits & 127)));
    }
    for (const char *name : {"C", "en_US", "de_DE", "de_CH", "fr_FR", "ar_EG"}) {
        const ScopedLocale locale(name);
        const ShortestRealWriter writer;
        int plain = 0;
        for (const double value : qAsConst(values)) {
            char out[ShortestRealWriter::plainCapacity];
            const int size = writer.writePlainly(value, out);
            plain += size > 0;
            const QString text = size > 0 ? QString::fromLatin1(out, size) : writer.textByLocale(value);
            ASSERT_EQ(text.toStdString(), byLocale(value).toStdString()) << name << ' ' << value;
        }
        EXPECT_GT(plain, std::strcmp(name, "ar_EG") == 0 ? -1 : 2000) << name;
    }
}

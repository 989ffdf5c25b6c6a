// SPDX-License-Identifier: BSD-3-Clause
// Base64 of doubles, each as eight bytes and twelve characters of its own: against QByteArray and absl.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyBase64Converter.h>
#include <ZyString.h>

#include <QByteArray>

#ifdef ZYBENCH_ABSL
#include <absl/strings/escaping.h>
#endif

#include <cstring>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned count = 4096;

struct Doubles
{
    std::vector<double> values;
    std::vector<std::string> texts;
    std::vector<ZyString> zyTexts;
    std::vector<QByteArray> qtTexts;

    Doubles()
    {
        Random random(16);
        for (unsigned i = 0; i < count; ++i) {
            values.push_back(random.unit());
            texts.push_back(base64(values.back()));
            zyTexts.emplace_back(texts.back());
            qtTexts.push_back(QByteArray::fromStdString(texts.back()));
        }
    }
};

Doubles const & doubles()
{
    static Doubles const made;
    return made;
}

template <class Encode>
void addEncode(std::string const & contender, Encode encode)
{
    addLoop("base64-encode/" + contender, count, [encode] {
        std::size_t total = 0;
        for (double const & value : doubles().values) {
            auto const text = encode(value);
            total += std::size_t(text[0]) + std::size_t(text[9]);
        }
        return total;
    });
}

template <class Decode>
void addDecode(std::string const & contender, Decode decode)
{
    addLoop("base64-decode/" + contender, count, [decode] {
        double total = 0;
        for (unsigned i = 0; i < count; ++i) {
            total += decode(doubles(), i);
        }
        return total;
    });
}

double fromBytes(char const * bytes)
{
    double value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

char const * bytesOf(double const & value)
{
    return reinterpret_cast<char const *>(&value);
}

} // namespace

void registerBenchmarks()
{
    addEncode("ours", [converter = ZyStringDoubleBase64Converter()](double const & value) {
        return converter.convert(value);
    });
    addEncode("ours-static", [](double const & value) { return ZyString::Base64(value); });
    addEncode("QByteArray", [](double const & value) {
        return QByteArray::fromRawData(bytesOf(value), 8).toBase64().toStdString();
    });
    addDecode("ours", [converter = ZyStringDoubleBase64Converter()](Doubles const & d, unsigned i) {
        return converter.convert(d.zyTexts[i]);
    });
    addDecode("QByteArray", [](Doubles const & d, unsigned i) {
        return fromBytes(QByteArray::fromBase64(d.qtTexts[i]).constData());
    });
#ifdef ZYBENCH_ABSL
    addEncode("absl",
              [](double const & value) { return absl::Base64Escape(absl::string_view(bytesOf(value), 8)); });
    addDecode("absl", [](Doubles const & d, unsigned i) {
        std::string bytes;
        absl::Base64Unescape(d.texts[i], &bytes);
        return fromBytes(bytes.data());
    });
#endif
}

} // namespace bench

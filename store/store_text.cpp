// SPDX-License-Identifier: MIT
#include "store/store_text.hpp"

#include <QStringDecoder>

namespace vkr {

QString toQString(const std::string& text) {
    if (!text.starts_with("\xEF\xBB\xBF"))
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

QVariant textValue(const std::string& text) {
    return toQString(text);
}

} // namespace vkr

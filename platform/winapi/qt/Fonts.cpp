// Fonts by em size in pixels, weight and face. Where the face is missing, the first installed of the stand-ins serves;
// a missing "... Semibold" face is its base family at weight 600 at least.
// Not here: cell heights, widths, rotation, italics, lines under or through the text, character sets, quality.
#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/GdiObjects.h"

#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <iterator>

namespace {

using namespace ovrin::layer;

QString FaceOf(const LOGFONTW &font) {
    const WCHAR *end = std::find(std::begin(font.lfFaceName), std::end(font.lfFaceName), WCHAR{0});
    return QString::fromUtf16(std::begin(font.lfFaceName), end - std::begin(font.lfFaceName));
}

// Asked once: for each family that it doesn't know the toolkit would search the system's aliases anew.
bool IsInstalled(const QString &family) {
    static const QStringList installed = QFontDatabase::families();
    return installed.contains(family, Qt::CaseInsensitive);
}

// The desktop's sans where none of them is installed.
QString FirstInstalled(const QStringList &families) {
    const auto found = std::find_if(families.begin(), families.end(), IsInstalled);
    return found != families.end() ? *found : QStringLiteral("sans-serif");
}

QFont ResolveFont(const LOGFONTW &asked) {
    constexpr int normalWeight = 400, semiboldWeight = 600, heaviestWeight = 1000;
    const QString semiboldEnding = QStringLiteral(" Semibold");
    QString face = FaceOf(asked);
    int weight = asked.lfWeight > 0 ? std::min<int>(asked.lfWeight, heaviestWeight) : normalWeight;
    if (face.endsWith(semiboldEnding, Qt::CaseInsensitive) && !IsInstalled(face)) {
        face.chop(semiboldEnding.size());
        weight = std::max(weight, semiboldWeight);
    }
    QFont font(
        FirstInstalled({face, QStringLiteral("Selawik"), QStringLiteral("Open Sans"), QStringLiteral("Noto Sans")}));
    font.setPixelSize(-asked.lfHeight);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

} // namespace

HFONT CreateFontIndirectW(const LOGFONTW *font) {
    if (font == nullptr) {
        return nullptr;
    }
    assert(font->lfHeight < 0 && font->lfWidth == 0 && font->lfEscapement == 0 && font->lfItalic == 0 &&
           font->lfUnderline == 0 && font->lfStrikeOut == 0);
    if (font->lfHeight >= 0) {
        return nullptr;
    }
    return Tables().fonts.Add(std::make_unique<Font>(Font{ResolveFont(*font)}));
}

namespace ovrin::layer {

QFont FontOf(HFONT font) {
    const Font *found = Tables().fonts.Find(font);
    return found != nullptr && font != Tables().defaultFont ? found->font : QFont{};
}

} // namespace ovrin::layer

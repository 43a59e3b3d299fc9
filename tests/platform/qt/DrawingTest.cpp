// Contexts, drawing objects and text of the layer, pixel by pixel where areas are flat.
#include "launcher/look/GdiHandles.h"
#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/TextDrawing.h"

#include <QBitmap>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>

namespace ovrin::layer {

namespace {

constexpr QRgb black = 0xFF000000, white = 0xFFFFFFFF, red = 0xFFFF0000;
constexpr COLORREF redReference = 0x0000FF;

UniqueFont MakeFont(std::u16string_view face, LONG height, LONG weight) {
    LOGFONTW record{};
    record.lfHeight = height;
    record.lfWeight = weight;
    face.copy(record.lfFaceName, LF_FACESIZE - 1);
    return UniqueFont{CreateFontIndirectW(&record)};
}

class Drawing : public testing::Test {
protected:
    Drawing() {
        target_.fill(white);
        painter_.begin(&target_);
        context_.emplace(painter_);
    }
    void TearDown() override {
        context_.reset();
        const auto [contexts, brushes, pens, fonts, bitmaps, shapes] = CountDrawingObjects();
        EXPECT_EQ(contexts + brushes + pens + fonts + bitmaps + shapes, 0U) << "drawing objects left behind";
    }
    [[nodiscard]] HDC dc() const { return context_->dc(); }

    // What isn't white: empty if nothing was drawn.
    [[nodiscard]] QRect Inked() const {
        return QRegion(QBitmap::fromImage(target_.createMaskFromColor(white, Qt::MaskInColor))).boundingRect();
    }

    // On a white ground; the height comes back.
    int Draw(std::u16string_view text, RECT rect, UINT format) {
        target_.fill(white);
        return DrawTextW(dc(), text.data(), static_cast<int>(text.size()), &rect, format);
    }

    QImage target_{200, 80, QImage::Format_RGB32};
    QPainter painter_;
    std::optional<ContextScope> context_;
};

TEST_F(Drawing, FillsWholePixelsWithoutRightAndBottomEdge) {
    const HBRUSH brush = CreateSolidBrush(redReference);
    painter_.setRenderHint(QPainter::Antialiasing);
    for (const RECT nothing : {RECT{9, 9, 9, 20}, RECT{20, 9, 9, 20}, RECT{9, 20, 20, 9}}) {
        EXPECT_NE(FillRect(dc(), &nothing, brush), 0);
    }
    EXPECT_EQ(Inked(), QRect());
    const RECT rect{3, 4, 7, 6};
    EXPECT_NE(FillRect(dc(), &rect, brush), 0);
    EXPECT_EQ(Inked(), QRect(3, 4, 4, 2));
    EXPECT_EQ(target_.pixel(6, 5), red);
    EXPECT_TRUE(painter_.testRenderHint(QPainter::Antialiasing)) << "the widget's painter comes back as it was";
    EXPECT_EQ(FillRect(dc(), &rect, nullptr), 0);
    EXPECT_EQ(FillRect(nullptr, &rect, brush), 0);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_FALSE(BrushColour(brush).isValid());
    EXPECT_TRUE(DeleteObject(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(BrushColour(static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))), QColor(Qt::black));
}

TEST_F(Drawing, CopiesFromMemoryOnceThereIsABitmapAlsoWithinItAndGivesOldObjectsBack) {
    const HDC memory = CreateCompatibleDC(dc());
    for (const SIZE size : {SIZE{0, 5}, SIZE{5, 0}, SIZE{-3, 5}}) {
        EXPECT_EQ(CreateCompatibleBitmap(dc(), size.cx, size.cy), nullptr);
    }
    EXPECT_TRUE(BitBlt(dc(), 0, 0, 4, 4, memory, 0, 0, SRCCOPY));
    EXPECT_EQ(Inked(), QRect()) << "without a bitmap there is nothing to copy";
    const HBITMAP bitmap = CreateCompatibleBitmap(dc(), 10, 10);
    const HBRUSH brush = CreateSolidBrush(redReference);
    const HGDIOBJ oldBitmap = SelectObject(memory, bitmap);
    EXPECT_EQ(SelectObject(dc(), bitmap), nullptr) << "a bitmap goes into memory contexts alone";
    const RECT rect{0, 0, 4, 4};
    FillRect(memory, &rect, brush);
    EXPECT_TRUE(BitBlt(memory, 2, 2, 4, 4, memory, 0, 0, SRCCOPY));
    EXPECT_TRUE(BitBlt(dc(), 50, 20, 6, 6, memory, 2, 2, SRCCOPY));
    EXPECT_EQ(Inked(), QRect(50, 20, 6, 6));
    EXPECT_EQ(target_.pixel(53, 23), red);
    EXPECT_EQ(target_.pixel(54, 23), black) << "a new bitmap is black";
    const HGDIOBJ oldBrush = SelectObject(memory, brush);
    EXPECT_EQ(SelectObject(memory, nullptr), nullptr);
    EXPECT_EQ(SelectObject(memory, oldBrush), brush);
    EXPECT_EQ(SelectObject(memory, oldBitmap), bitmap);
    EXPECT_TRUE(DeleteObject(bitmap) && DeleteObject(brush) && DeleteDC(memory));
}

TEST_F(Drawing, ABitmapHasThePixelDensityOfItsTarget) {
    QImage dense(20, 20, QImage::Format_RGB32);
    dense.setDevicePixelRatio(2);
    dense.fill(white);
    QPainter painter(&dense);
    const ContextScope scope(painter);
    const MemoryCanvas memory(scope.dc(), {10, 10});
    const UniqueFont font = MakeFont(u"Open Sans", -9, 400);
    const SelectionScope selected(memory.dc(), font.get());
    SetTextColor(memory.dc(), 0xFFFFFF);
    SetBkMode(memory.dc(), TRANSPARENT);
    RECT rect{0, 0, 10, 10};
    DrawTextW(memory.dc(), u"v", 1, &rect, DT_SINGLELINE);
    memory.CopyTo(scope.dc());
    EXPECT_NE(dense.scaled(10, 10).scaled(20, 20), dense) << "the text was drawn coarse and stretched";
}

TEST_F(Drawing, SettingsGiveThePreviousValueBack) {
    EXPECT_EQ(SetBkMode(dc(), TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetBkMode(dc(), OPAQUE), TRANSPARENT);
    EXPECT_EQ(SetTextColor(dc(), 0x123456), 0x000000U);
    EXPECT_EQ(context_->TextColour(), QColor(0x56, 0x34, 0x12));
    EXPECT_EQ(SetTextColor(dc(), 0), 0x123456U);
    EXPECT_EQ(SetBkColor(dc(), 1), 0xFFFFFFU);
    EXPECT_EQ(SetBkColor(nullptr, 1), 0xFFFFFFFFU);
}

TEST_F(Drawing, AStaleHandleIsAFaultAndSelectsNothing) {
    const HBRUSH brush = CreateSolidBrush(redReference);
    DeleteObject(brush);
    EXPECT_DEBUG_DEATH(EXPECT_EQ(SelectObject(dc(), brush), nullptr), "stale");
    const UniqueBrush selected{CreateSolidBrush(redReference)};
    const SelectionScope selection(dc(), selected.get());
    EXPECT_DEBUG_DEATH(EXPECT_FALSE(DeleteObject(selected.get())), "selected");
}

TEST(FlatDrawingLibrary, StartsInVersionOneOnly) {
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartupInput input;
    ASSERT_EQ(Gdiplus::GdiplusStartup(&token, &input, nullptr), Gdiplus::Ok);
    EXPECT_NE(token, 0U);
    Gdiplus::GdiplusShutdown(token);
    EXPECT_DEBUG_DEATH(Gdiplus::GdiplusShutdown(token), "shutdown");
    EXPECT_EQ(Gdiplus::GdiplusStartup(nullptr, &input, nullptr), Gdiplus::InvalidParameter);
    EXPECT_EQ(Gdiplus::GdiplusStartup(&token, nullptr, nullptr), Gdiplus::InvalidParameter);
    input.GdiplusVersion = 2;
    EXPECT_EQ(Gdiplus::GdiplusStartup(&token, &input, nullptr), Gdiplus::InvalidParameter);
}

TEST_F(Drawing, FontsHaveTheirEmSizeWeightAndFirstInstalledFace) {
    UniqueFont owned = MakeFont(u"Segoe UI Semibold", -15, 600);
    const HFONT handle = owned.get();
    const QFont font = FontOf(handle);
    EXPECT_EQ(font.pixelSize(), 15);
    EXPECT_EQ(font.weight(), 600);
    for (const char *family : {"Segoe UI Semibold", "Segoe UI", "Selawik", "Open Sans", "Noto Sans"}) {
        if (QFontDatabase::hasFamily(QLatin1String(family))) {
            EXPECT_EQ(QFontInfo(font).family(), QLatin1String(family));
            break;
        }
    }
    const HGDIOBJ old = SelectObject(dc(), handle);
    EXPECT_EQ(SelectObject(dc(), old), handle);
    owned.reset();
    EXPECT_EQ(FontOf(handle), QFont());
}

TEST_F(Drawing, TextStandsWhereItsFlagsPutItAndStaysInItsBox) {
    const UniqueFont font = MakeFont(u"Open Sans", -15, 400);
    const SelectionScope selected(dc(), font.get());
    SetBkColor(dc(), redReference);
    const RECT box{10, 5, 190, 75};
    const int height = Draw(u"A&B", box, DT_SINGLELINE);
    const QRect topLeft = Inked(); // with the background: the line's whole cell
    EXPECT_EQ(topLeft, QRect(10, 5, topLeft.width(), height));
    EXPECT_EQ(topLeft.width(), qCeil(QFontMetricsF(FontOf(font.get())).horizontalAdvance(QStringLiteral("A&B"))));
    Draw(u"A&B", box, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(Inked().topLeft(), QPoint(10 + (180 - topLeft.width()) / 2, 5 + (70 - height) / 2));
    EXPECT_EQ(Draw(u"A\r\nB", box, DT_VCENTER), 2 * height) << "several lines start at the top";
    EXPECT_EQ(Inked().top(), 5);
    EXPECT_EQ(Draw(u"", box, DT_SINGLELINE), 0);
    SetBkMode(dc(), TRANSPARENT);
    const RECT narrow{10, 9, 16, 12};
    Draw(u"WWWWWW", narrow, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(Inked(), QRect(10, 9, 6, 3) & Inked());
    EXPECT_NE(Inked(), QRect());
}

TEST_F(Drawing, TextWithoutRoomWrapsAtBlanksOrLosesCharacters) {
    const QFontMetricsF metrics(FontOf(nullptr));
    const auto width = [&](const char *text) { return qCeil(metrics.horizontalAdvance(QString::fromUtf8(text))) + 1; };
    const struct {
        const char *label, *text;
        int width;
        UINT format;
        const char *expected;
    } cases[] = {
        {"what fits stays", "abc", width("abc"), DT_END_ELLIPSIS | DT_PATH_ELLIPSIS, "abc"},
        {"no flag, nothing lost", "abcdef", 5, DT_SINGLELINE, "abcdef"},
        {"wrapped before a dot", "one .two  three", width("one .t"), DT_WORDBREAK, "one|.two|three"},
        {"one line doesn't wrap", "one two", 5, DT_WORDBREAK | DT_SINGLELINE, "one two"},
        {"a long word stays whole", "a wwwwwwwwww b", width("www"), DT_WORDBREAK, "a|wwwwwwwwww|b"},
        {"line ends", "a\r\nb\rc\n", 99, 0, "a|b|c|"},
        {"the end", "wwwwwwwwww", width("www…"), DT_SINGLELINE | DT_END_ELLIPSIS, "www…"},
        {"the last element stays", "/wwwwww/wwwwww/name", width("/www…/name"), DT_PATH_ELLIPSIS, "/www…/name"},
        {"backslashes too", "C:\\wwwwwwww\\name", width("C:\\w…\\name"), DT_PATH_ELLIPSIS, "C:\\w…\\name"},
        {"an element too long", "/wwwwww/wwwwwwwwwwww", width("…/www…"), DT_PATH_ELLIPSIS, "…/www…"},
    };
    for (const auto &[label, text, room, format, expected] : cases) {
        const QStringList lines = FitText(QString::fromUtf8(text), metrics, room, format);
        EXPECT_EQ(lines.join(QLatin1Char('|')).toStdString(), std::string(expected)) << label;
    }
}

} // namespace

} // namespace ovrin::layer

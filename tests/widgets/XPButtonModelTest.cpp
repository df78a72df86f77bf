#include <gtest/gtest.h>

#include <QGuiApplication>

#include "platform/PropertyBag.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

const ButtonPicture kBitmap = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
const ButtonPicture kIcon = ButtonPicture::icon(plainImage({8, 8}, Qt::red));
constexpr ColorValue kRed(0x0000FF);
constexpr ColorValue kBlue(0xFF0000);

class XPButtonModelTest : public testing::Test {
  protected:
    void advise(const char* text) {
        desktop.expectBox({text, QGuiApplication::applicationDisplayName(), BoxIcon::Information});
    }
    FakeDesktop desktop;
    TestHost host;
    XPButton button{desktop, nullptr, &host};
};

TEST(AdjustColor, ShiftsWithItsOddDivisors) {
    struct Row {
        Bgr color;
        int shift;
        bool scaleBlue, avoidExtremes, invert;
        Bgr result;
    };
    const Row rows[] = {
        {0xFFFFFF, -32, true, false, false, 0xD6E0DF},
        {0xFFFFFF, -32, false, false, false, 0xE0E0DF},
        {0xFFFFFF, 0, true, false, false, 0xFFFFFF},
        {0x804020, 10, true, false, false, 0x874A2A},  // blue 129 + 10 * 129 / 192, dropped to 6
        {0x804020, 10, false, false, true, 0x74B5D5},  // the complement of 0x8B4A2A
        {0x000000, 0, true, true, false, 0x004040},    // 64 instead, and no blue to scale
        {0xFFFFFF, 0, true, true, false, 0xABC0BF},    // 64 is white again, so back
        {0x808080, 300, true, true, false, kWhite},    // no turn helps
        {0x8000000F, -100000, true, true, false, 0x00FFFF},
    };
    for (const Row& row : rows)
        EXPECT_EQ(AdjustColor(row.color, row.shift, row.scaleBlue, row.avoidExtremes, row.invert),
                  row.result)
            << std::hex << row.color << std::dec << " by " << row.shift;
}

TEST_F(XPButtonModelTest, TakesAndRefusesByTheRulesBetweenMembers) {
    for (const int bad : {-1, 99, 1 << 30}) {
        for (const auto& [set, highest] : kNumbers) (button.*set)(bad);
        button.SetHoverColorLocks(bad);
    }
    button.SetMousePointer(16);
    button.SetButtonShape(kCustomShape);  // no picture yet
    EXPECT_EQ(host.told, "");

    button.SetCaptionAlign(1);
    button.SetPictureAlign(5);
    EXPECT_EQ(button.CaptionAlign(), 2);
    button.SetCaptionAlign(0);
    EXPECT_EQ(button.CaptionAlign(), 0) << "no picture, so the caption may stand anywhere";
    button.SetPicture(kBitmap);
    button.SetCaptionAlign(1);
    EXPECT_EQ(button.CaptionAlign(), 0);

    button.SetButtonShape(kCustomShape);
    EXPECT_EQ(button.ButtonShape(), 7);
    EXPECT_EQ(button.CaptionAlign(), 2);
    button.SetPictureSize(0);
    EXPECT_EQ(button.PictureSize(), 4);
    button.SetPicture(kIcon);
    EXPECT_EQ(button.ButtonShape(), 0);

    advise("Select .ico Or .cur Files Only");
    button.SetMouseIcon(kBitmap);
    EXPECT_EQ(button.MousePointer(), 0);
    button.SetMouseIcon(kIcon);
    EXPECT_EQ(button.MousePointer(), kCustomPointer);
}

TEST_F(XPButtonModelTest, AdvisesTheDesigner) {
    host.userMode = false;
    advise("The Picture Property must be assigned first and must be a bitmap or JPEG.");
    button.SetButtonShape(7);
    button.SetPicture(kBitmap);
    button.SetPictureAlign(4);
    advise(
        "When button images are aligned top/bottom center, \r\nbutton captions can only be center "
        "aligned");
    button.SetCaptionAlign(0);
    button.SetButtonShape(7);
    advise("The picture size cannot be changed for Shaped buttons");
    button.SetPictureSize(1);
    advise(
        "Icons cannot be used for custom buttons. Only use bitmaps or JPEGs.\r\nButton was changed "
        "to Rectangular shaped.");
    button.SetPicture(kIcon);
    host.displayAsDefault = true;
    button.UserControl_AmbientChanged("displayasdefault");
    advise(
        "The focus rectangle may appear on default buttons ONLY while in design mode, \r\nbut will "
        "not appear when the form is running.");
    button.SetShowFocusRect(false);
    EXPECT_TRUE(button.look().has(XPButtonLook::kDefault));
    host.userMode = true;
    button.SetShowFocusRect(true);
    EXPECT_FALSE(button.look().has(XPButtonLook::kDefault));

    button.SetBackColor(kRed);
    button.SetResetDefaultColors(true);
    EXPECT_EQ(button.BackColor(), kRed);
    host.userMode = false;
    button.SetHoverBackColor(kBlue);
    button.SetResetDefaultColors(true);
    EXPECT_EQ(button.BackColor(), kButtonFace);
    EXPECT_EQ(button.HoverBackColor(), kButtonFace);
    EXPECT_EQ(button.HoverColorLocks(), 0);
}

TEST_F(XPButtonModelTest, HoverColoursFollowUntilLocked) {
    button.SetBackColor(kRed);
    button.SetForeColor(kBlue);
    EXPECT_EQ(button.HoverBackColor(), kRed);
    EXPECT_EQ(button.HoverForeColor(), kBlue);
    EXPECT_EQ(button.HoverColorLocks(), 0);
    button.SetGradientColor(kBlue);
    EXPECT_EQ(button.HoverBackColor(), kRed);
    button.SetGradientMode(3);
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    button.SetBackColor(kButtonFace);
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    EXPECT_EQ(button.HoverColorLocks(), 0);
    button.SetGradientMode(0);
    EXPECT_EQ(button.HoverBackColor(), kButtonFace);

    button.SetHoverBackColor(kRed);
    EXPECT_EQ(button.HoverColorLocks(), 1);
    button.SetHoverForeColor(kRed);
    EXPECT_EQ(button.HoverColorLocks(), 3);
    button.SetBackColor(kBlue);
    button.SetForeColor(kRed);
    EXPECT_EQ(button.HoverBackColor(), kRed);
    button.SetHoverBackColor(kBlue);
    EXPECT_EQ(button.HoverColorLocks(), 3);
    button.SetHoverColorLocks(2);
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    button.SetHoverColorLocks(0);
    EXPECT_EQ(button.HoverForeColor(), kRed);
}

TEST_F(XPButtonModelTest, FindsTheAccessKeyBehindTheLastMark) {
    struct Row {
        const char* caption;
        const char* key;
        const char* spoken;
    };
    const Row rows[] = {
        {"Save && &Close", "C", "Save & Close"},
        {"&Old &New", "N", "Old New"},
        {"None", "N", "None"},  // as it was
        {"One||&two", "t", "One two"},
        {"End&", "", "End"},
        {"&", "", ""},
        {"||", "", " "},
    };
    for (const Row& row : rows) {
        button.SetCaption(row.caption);
        const QString alt = *row.key ? QStringLiteral("Alt+") + row.key : QString();
        EXPECT_EQ(button.accessKeySequence().toString().toLower(), alt.toLower()) << row.caption;
        EXPECT_EQ(spokenCaption(row.caption).toStdString(), row.spoken);
    }
}

using Values = std::vector<std::pair<QString, QVariant>>;

Values stored(const XPButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    Values values;
    for (const QString& key : bag.keys()) {
        const QVariant value = bag.readProperty(key, QVariant());
        const bool icon = value.typeId() == QMetaType::QIcon;
        values.emplace_back(key, icon ? ButtonPicture::of(value).image() : value);
    }
    return values;
}

TEST_F(XPButtonModelTest, ComesBackFromTheStoreAsItWas) {
    host.backColor = kBlue;
    button.InitProperties();
    EXPECT_EQ(host.told, "Caption CapAlign Focus cFHover cBHover Font ");
    EXPECT_EQ(button.Caption(), "btnOne");
    PropertyBag nothing;
    button.ReadProperties(nothing);
    EXPECT_EQ(stored(button), Values());
    EXPECT_EQ(button.HoverBackColor(), kBlue);

    Dice dice(5);
    const auto color = [&] {
        return ColorValue((dice.upTo(1) ? 0x80000000U : 0U) + static_cast<unsigned>(dice.upTo(20)));
    };
    const ButtonPicture pictures[] = {{}, kBitmap, kIcon};
    for (int round = 0; round < 100; ++round) {
        button.SetCaption(QStringList{"", "a&b", "c||d"}.at(dice.upTo(2)));
        button.SetPicture(pictures[dice.upTo(2)]);
        dice.setNumbers(button);
        button.SetEnabled(dice.upTo(1) != 0);
        button.SetShowFocusRect(dice.upTo(1) != 0);
        button.SetMouseIcon(pictures[2 * dice.upTo(1)]);
        button.SetMousePointer(dice.upTo(15));
        button.SetFont(QFont("Courier New", 8 + dice.upTo(3)));
        for (const auto set :
             {&XPButton::SetForeColor, &XPButton::SetBackColor, &XPButton::SetGradientColor,
              &XPButton::SetGotFocusBorderColor, &XPButton::SetHoverBorderColor,
              &XPButton::SetHoverForeColor, &XPButton::SetHoverBackColor})
            if (dice.upTo(2) != 0) (button.*set)(color());

        PropertyBag bag;
        button.WriteProperties(bag);
        XPButton other(desktop, nullptr, &host);
        other.setFont(host.font);
        other.ReadProperties(bag);
        ASSERT_EQ(stored(other), stored(button)) << "round " << round;
    }
}

TEST_F(XPButtonModelTest, ReadsAStoreOfNonsenseAsAnEmptyOne) {
    PropertyBag bag;
    for (const char* key : {"CapAlign", "Shape", "Gradient", "ImgSize", "ImgAlign", "LockHover",
                            "CapStyle", "mPointer", "cFore", "cBack", "cBHover"})
        bag.writeProperty(key, qlonglong{1} << 40, {});
    for (const char* key : {"Font", "Focus", "Image", "Enabled", "mIcon", "cGradient", "Caption"})
        bag.writeProperty(key, QVariantList{1, 2}, {});
    button.setFont(host.font);
    button.ReadProperties(bag);
    EXPECT_EQ(stored(button), Values());
}

}  // namespace
}  // namespace brindlex

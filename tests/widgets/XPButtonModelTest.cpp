#include <gtest/gtest.h>

#include <QGuiApplication>
#include <tuple>
#include <utility>

#include "platform/PropertyBag.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

const ButtonPicture kBitmap = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
const ButtonPicture kIcon = ButtonPicture::icon(plainImage({8, 8}, Qt::red));
constexpr ColorValue kRed(0x0000FF);
constexpr ColorValue kBlue(0xFF0000);

/// A desktop that notes the first words of each box.
struct NotingDesktop : FakeDesktop {
    QStringList said;
    BoxAnswer showBox(QWidget*, const MessageBox& box) override {
        EXPECT_EQ(box.title, QGuiApplication::applicationDisplayName());
        said << box.text.section(' ', 0, 3);
        return BoxAnswer::Ok;
    }
};

class XPButtonModelTest : public testing::Test {
  protected:
    NotingDesktop desktop;
    TestHost host;
    XPButton button{desktop, nullptr, &host};
};

TEST(AdjustColor, ShiftsTurnsRoundAtBlackAndWhiteAndInverts) {
    EXPECT_EQ(AdjustColor(0xFFFFFF, -32), 0xD6E0DFU);
    EXPECT_EQ(AdjustColor(0, 0, true, true), 0x004040U);         // black has no blue to scale
    EXPECT_EQ(AdjustColor(0xFFFFFF, 0, true, true), 0xABC0BFU);  // 64 is white again, so back
    EXPECT_EQ(AdjustColor(0x808080, 300, true, true), kWhite);   // no turn helps
    EXPECT_EQ(AdjustColor(0x8000000F, -100000, true, true), 0x00FFFFU);
    EXPECT_EQ(AdjustColor(0x102030, 5, false, false, true), 0xEADACAU);
}

TEST_F(XPButtonModelTest, TakesAndRefusesByTheRulesOfMembersAndAdvisesTheDesigner) {
    for (const int bad : {-1, 99, 1 << 30}) {
        for (const auto& [set, highest] : kNumbers) (button.*set)(bad);
        button.SetHoverColorLocks(bad);
    }
    button.SetMousePointer(16);
    button.SetButtonShape(kCustomShape);  // no picture yet
    EXPECT_EQ(host.told, "");
    host.displayAsDefault = true;
    for (const bool design : {true, false}) {
        host.userMode = !design;
        desktop.said.clear();
        XPButton fresh(desktop, nullptr, &host);
        fresh.SetButtonShape(kCustomShape);
        fresh.SetPictureAlign(5);
        fresh.SetCaptionAlign(0);
        EXPECT_EQ(fresh.CaptionAlign(), 0) << "no picture, so the caption may stand anywhere";
        fresh.SetPicture(kBitmap);
        fresh.SetCaptionAlign(1);
        EXPECT_EQ(fresh.CaptionAlign(), 0);
        fresh.SetPictureAlign(4);
        EXPECT_EQ(fresh.CaptionAlign(), 2);

        fresh.SetButtonShape(kCustomShape);
        fresh.SetPictureSize(0);
        EXPECT_EQ(fresh.ButtonShape(), kCustomShape);
        EXPECT_EQ(fresh.PictureSize(), 4);
        fresh.SetPicture(kIcon);
        EXPECT_EQ(fresh.ButtonShape(), 0);

        fresh.UserControl_AmbientChanged("displayasdefault");
        fresh.SetShowFocusRect(false);
        EXPECT_EQ(fresh.look().has(XPButtonLook::kDefault), design);
        fresh.UserControl_AmbientChanged("DisplayAsDefault");
        EXPECT_EQ(fresh.look().has(XPButtonLook::kDefault), design);
        XPButton shown(desktop, nullptr, &host);
        shown.show();
        EXPECT_EQ(shown.look().has(XPButtonLook::kDefault), design) << "nobody else says so there";

        fresh.SetMouseIcon(kBitmap);
        EXPECT_EQ(fresh.MousePointer(), 0);
        fresh.SetMouseIcon(kIcon);
        EXPECT_EQ(fresh.MousePointer(), kCustomPointer);

        fresh.SetBackColor(kRed);
        fresh.SetHoverBackColor(kBlue);
        fresh.SetResetDefaultColors(true);
        EXPECT_EQ(fresh.BackColor(), design ? kButtonFace : kRed);
        EXPECT_EQ(fresh.HoverBackColor(), design ? kButtonFace : kBlue);
        EXPECT_EQ(fresh.HoverColorLocks(), design ? 0 : 1);
        QStringList expected{"Select .ico Or .cur"};
        if (design)
            expected = QStringList{"The Picture Property must", "When button images are",
                                   "The picture size cannot", "Icons cannot be used",
                                   "The focus rectangle may"} +
                       expected;
        EXPECT_EQ(desktop.said, expected);
    }
}

TEST_F(XPButtonModelTest, HoverColoursFollowUntilLocked) {
    using Hover = std::tuple<ColorValue, ColorValue, int>;
    const auto hover = [this] {
        return Hover(button.HoverBackColor(), button.HoverForeColor(), button.HoverColorLocks());
    };
    button.SetBackColor(kRed);
    button.SetForeColor(kBlue);
    button.SetGradientColor(kBlue);
    EXPECT_EQ(hover(), Hover(kRed, kBlue, 0));
    button.SetGradientMode(3);
    EXPECT_EQ(hover(), Hover(kBlue, kBlue, 0));
    button.SetBackColor(kButtonFace);
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    button.SetGradientMode(0);
    EXPECT_EQ(hover(), Hover(kButtonFace, kBlue, 0));

    button.SetHoverBackColor(kRed);
    EXPECT_EQ(hover(), Hover(kRed, kBlue, 1));
    button.SetHoverForeColor(kRed);
    EXPECT_EQ(hover(), Hover(kRed, kRed, 3));
    button.SetBackColor(kBlue);
    button.SetForeColor(kBlue);
    EXPECT_EQ(hover(), Hover(kRed, kRed, 3));
    button.SetHoverColorLocks(2);
    EXPECT_EQ(hover(), Hover(kBlue, kRed, 2));
    button.SetHoverColorLocks(0);
    EXPECT_EQ(hover(), Hover(kBlue, kBlue, 0));
}

TEST_F(XPButtonModelTest, TellsTheHostWhatChangesAlong) {
    const auto told = [this] { return std::exchange(host.told, {}); };
    PropertyBag bag;
    bag.writeProperty("ImgSize", 0, {});
    button.ReadProperties(bag);
    told();
    button.SetPicture(kBitmap);
    EXPECT_EQ(told(), "ImgSize Image ");
    button.SetGradientColor(kBlue);
    EXPECT_EQ(told(), "cGradient ");
    button.SetGradientMode(1);
    EXPECT_EQ(told(), "cBHover Gradient ");
    button.SetGradientColor(kRed);
    EXPECT_EQ(told(), "cBHover cGradient ");
    button.SetHoverBackColor(kBlue);
    EXPECT_EQ(told(), "LockHover cBHover ");
    button.SetHoverForeColor(kBlue);
    EXPECT_EQ(told(), "LockHover cFHover ");
    button.SetHoverColorLocks(0);
    EXPECT_EQ(told(), "cBHover cFHover LockHover ");
    button.SetMouseIcon(kIcon);
    EXPECT_EQ(told(), "mPointer mIcon ");
    EXPECT_EQ(button.cursor().pixmap().size(), QSize(8, 8));
    button.SetMouseIcon(ButtonPicture::icon(plainImage({4000, 20}, Qt::red)));
    EXPECT_EQ(button.cursor().pixmap().size(), QSize(32, 1));
    told();
    button.SetMouseIcon({});
    EXPECT_EQ(told(), "mIcon ");
}

TEST_F(XPButtonModelTest, TheFrameShowsTheMembers) {
    button.SetBackColor(ColorValue(0x404040));
    EXPECT_EQ(button.frame().FaceColor, 0x507070U);
    EXPECT_EQ(button.frame().PressedColor, 0x435050U);
    EXPECT_EQ(button.frame().HoverFaceColor, 0x507070U);
    button.SetHoverBackColor(kBlue);
    EXPECT_EQ(button.frame().HoverFaceColor, 0xFF3030U);
    EXPECT_FALSE(button.frame().hoverKeepsGradient);
    button.SetGradientColor(kBlue);
    EXPECT_TRUE(button.frame().hoverKeepsGradient);
    EXPECT_EQ(button.frame().GradientColor, kBlue.value());
    button.SetShowFocusRect(false);
    EXPECT_FALSE(button.frame().ShowFocusRect);
    button.SetBackColor(kButtonFace);
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(0x40, 0x40, 0x40));
    button.setPalette(palette);
    EXPECT_EQ(button.frame().FaceColor, 0x507070U);
}

TEST_F(XPButtonModelTest, FindsTheAccessKeyBehindTheLastMark) {
    const std::tuple<const char*, QString, QString> rows[] = {
        {"Save && &Close", "Alt+C", "Save & Close"},
        {"&Old &New", "Alt+N", "Old New"},
        {"None", "Alt+N", "None"},              // as it was
        {"Save && close", "", "Save & close"},  // a blank is none
        {"One||&two", "Alt+T", "One two"},
        {"End&", "", "End"},
        {"||", "", " "},
    };
    for (const auto& [caption, key, spoken] : rows) {
        button.SetCaption(caption);
        EXPECT_EQ(button.accessKeySequence().toString(), key) << caption;
        EXPECT_EQ(spokenCaption(caption), spoken);
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
    EXPECT_EQ(button.Font().pointSize(), 11);
    PropertyBag nothing;
    button.ReadProperties(nothing);
    EXPECT_EQ(stored(button), Values());
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    QWidget container;
    QPalette red;
    red.setColor(QPalette::Window, Qt::red);
    container.setPalette(red);
    XPButton hostless(desktop, &container);
    hostless.ReadProperties(nothing);
    EXPECT_EQ(hostless.BackColor(), kRed);

    using SetColor = void (XPButton::*)(ColorValue);
    const SetColor colors[] = {&XPButton::SetForeColor,        &XPButton::SetBackColor,
                               &XPButton::SetGradientColor,    &XPButton::SetGotFocusBorderColor,
                               &XPButton::SetHoverBorderColor, &XPButton::SetHoverForeColor,
                               &XPButton::SetHoverBackColor};
    button.SetPicture(kBitmap);
    for (const auto& [set, highest] : kNumbers) (button.*set)(1);
    for (const SetColor set : colors) (button.*set)(set == colors[0] ? kBlue : kRed);
    button.SetHoverBackColor(kBlue);
    button.SetEnabled(false);
    button.SetShowFocusRect(false);
    button.SetMouseIcon(kIcon);
    button.SetFont(QFont("Courier New", 8));
    button.SetCaption("All is set");
    PropertyBag all;
    button.WriteProperties(all);
    std::string keys;
    for (const QString& key : all.keys()) keys += key.toStdString() + " ";
    EXPECT_EQ(keys,
              "Caption CapAlign Shape Font cFore cFHover cBhover Focus LockHover cGradient "
              "Gradient CapStyle ImgAlign Image ImgSize Enabled cBack mPointer mIcon "
              "GotFocusBorderColor HoverBorderColor ");

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
        for (const SetColor set : colors)
            if (dice.upTo(2) != 0) (button.*set)(color());

        PropertyBag bag;
        button.WriteProperties(bag);
        XPButton other(desktop, nullptr, &host);
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
    button.SetMousePointer(5);
    button.ReadProperties(bag);
    EXPECT_EQ(stored(button), Values());
}

}  // namespace
}  // namespace brindlex

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <functional>
#include <tuple>
#include <utility>

#include "system/MousePointer.h"
#include "system/PropertyBag.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

const ButtonPicture kBitmap = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
const ButtonPicture kIcon = ButtonPicture::icon(plainImage({8, 8}, Qt::red));
constexpr ColorValue kRed(0x0000FF);
constexpr ColorValue kBlue(0xFF0000);

/// A desktop that notes the first two words of each box.
struct NotingDesktop : FakeDesktop {
    QString said;
    std::function<void()> meanwhile;
    BoxAnswer showBox(QWidget*, const MessageBox& box) override {
        EXPECT_EQ(box.title, QGuiApplication::applicationDisplayName());
        said += box.text.section(' ', 0, 1) + '|';
        if (meanwhile) meanwhile();
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
        for (const auto set :
             {&XPButton::SetCaptionAlign, &XPButton::SetCaptionStyle, &XPButton::SetButtonShape,
              &XPButton::SetPictureAlign, &XPButton::SetPictureSize, &XPButton::SetGradientMode,
              &XPButton::SetHoverColorLocks})
            (button.*set)(bad);
    }
    button.SetMousePointer(16);
    button.SetButtonShape(kCustomShape);  // no picture yet
    EXPECT_EQ(host.told, "");
    host.displayAsDefault = true;
    for (const bool design : {true, false}) {
        host.userMode = !design;
        desktop.said.clear();
        XPButton fresh(desktop, nullptr, &host);
        const auto isDefault = [&] { return fresh.state().has(XPButtonState::kDefault); };
        fresh.show();
        EXPECT_EQ(isDefault(), design);
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
        EXPECT_EQ(isDefault(), design);
        fresh.SetMouseIcon(kBitmap);
        EXPECT_EQ(fresh.MousePointer(), 0);
        fresh.SetBackColor(kRed);
        fresh.SetHoverBackColor(kBlue);
        fresh.SetResetDefaultColors(true);
        EXPECT_EQ(fresh.BackColor(), design ? kButtonFace : kRed);
        EXPECT_EQ(fresh.HoverBackColor(), design ? kButtonFace : kBlue);
        EXPECT_EQ(fresh.HoverColorLocks(), design ? 0 : 1);
        const QString boxes = "The Picture|When button|The picture|Icons cannot|The focus|";
        EXPECT_EQ(desktop.said, (design ? boxes : QString()) + "Select .ico|");
    }
}

TEST_F(XPButtonModelTest, MayBeDeletedWhileABoxAdvises) {
    host.userMode = false;
    host.displayAsDefault = true;
    using One = XPButton&;
    const std::function<void(One)> advised[] = {
        [](One one) { one.SetCaptionAlign(0); },
        [](One one) { one.SetPictureSize(0); },
        [](One one) { one.SetPicture(kIcon); },
        [](One one) { one.SetShowFocusRect(false); },
        [](One one) { one.SetMouseIcon(kBitmap); },
        [](One one) { one.SetPicture({}), one.SetButtonShape(kCustomShape); },
    };
    for (const auto& set : advised) {
        auto* one = new XPButton(desktop, nullptr, &host);
        one->SetPicture(kBitmap);
        one->SetPictureAlign(4);
        one->SetButtonShape(kCustomShape);
        one->UserControl_AmbientChanged("DisplayAsDefault");
        desktop.meanwhile = [&one] { delete std::exchange(one, nullptr); };
        set(*one);
        EXPECT_FALSE(one);
    }
}

TEST_F(XPButtonModelTest, HoverColoursFollowUntilLocked) {
    const auto expectAfter = [this](auto back, auto fore, int locks, const std::string& told) {
        EXPECT_EQ(button.HoverBackColor(), back) << told;
        EXPECT_EQ(button.HoverForeColor(), fore) << told;
        EXPECT_EQ(button.HoverColorLocks(), locks) << told;
        EXPECT_EQ(std::exchange(host.told, {}), told);
    };
    button.SetBackColor(kRed);
    expectAfter(kRed, kButtonText, 0, "cBHover cBack ");
    button.SetForeColor(kBlue);
    expectAfter(kRed, kBlue, 0, "cFHover cFore ");
    button.SetGradientColor(kBlue);
    expectAfter(kRed, kBlue, 0, "cGradient ");
    button.SetGradientMode(3);
    expectAfter(kBlue, kBlue, 0, "cBHover Gradient ");
    button.SetGradientColor(kRed);
    expectAfter(kRed, kBlue, 0, "cBHover cGradient ");
    button.SetBackColor(kBlue);
    expectAfter(kRed, kBlue, 0, "cBHover cBack ");
    button.SetGradientMode(0);
    expectAfter(kBlue, kBlue, 0, "cBHover Gradient ");
    button.SetHoverBackColor(kRed);
    expectAfter(kRed, kBlue, 1, "LockHover cBHover ");
    button.SetHoverForeColor(kRed);
    expectAfter(kRed, kRed, 3, "LockHover cFHover ");
    button.SetBackColor(kButtonFace);
    expectAfter(kRed, kRed, 3, "cBack ");
    button.SetHoverBackColor(kButtonFace);
    expectAfter(kButtonFace, kRed, 3, "cBHover ");
    button.SetBackColor(kBlue);
    button.SetForeColor(kRed);
    expectAfter(kButtonFace, kRed, 3, "cBack cFore ");
    button.SetHoverColorLocks(2);
    expectAfter(kBlue, kRed, 2, "cBHover LockHover ");
    button.SetHoverColorLocks(0);
    expectAfter(kBlue, kRed, 0, "LockHover ");
}

TEST_F(XPButtonModelTest, WorkingColoursFollowTheMembersAndThePalette) {
    const auto colors = [this] {
        const XPButtonWorkingColors& c = button.workingColors();
        return std::vector<Bgr>{c.FaceColor, c.PressedColor,   c.HoverFaceColor,
                                c.ForeColor, c.HoverForeColor, c.GradientColor};
    };
    button.SetForeColor(kRed);
    button.SetHoverForeColor(kBlue);
    button.SetHoverBackColor(kBlue);
    button.SetGradientColor(kRed);
    button.SetBackColor(ColorValue(0x404040));
    const std::vector<Bgr> expected{0x507070, 0x435050, 0xFF3030, 0x0000FF, 0xFF0000, 0x0000FF};
    EXPECT_EQ(colors(), expected);
    button.SetBackColor(kButtonFace);
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(0x40, 0x40, 0x40));
    button.setPalette(palette);
    EXPECT_EQ(colors(), expected);
}

TEST_F(XPButtonModelTest, ThePointerIsACursorOfTheSystemOrTheIcon) {
    button.SetMousePointer(2);
    EXPECT_EQ(button.cursor().shape(), Qt::CrossCursor);
    button.SetMouseIcon(kIcon);
    EXPECT_EQ(button.MousePointer(), kCustomPointer);
    EXPECT_EQ(button.cursor().pixmap().size(), QSize(8, 8));
    button.SetMouseIcon({});
    EXPECT_EQ(button.cursor().shape(), Qt::ArrowCursor);
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

    button.SetPicture(kBitmap);
    button.SetPictureSize(2);
    button.SetButtonShape(3);
    button.SetCaptionAlign(1);
    button.SetPictureAlign(3);
    button.SetCaptionStyle(2);
    button.SetGradientMode(4);
    button.SetForeColor(ColorValue(0x80000005));
    button.SetBackColor(kRed);
    button.SetGradientColor(ColorValue(1));
    button.SetGotFocusBorderColor(ColorValue(2));
    button.SetHoverBorderColor(ColorValue(3));
    button.SetHoverForeColor(ColorValue(4));
    button.SetHoverBackColor(ColorValue(5));
    button.SetEnabled(false);
    button.SetShowFocusRect(false);
    button.SetMouseIcon(kIcon);
    button.SetFont(QFont("Courier New", 8));
    button.SetCaption("a&b||c");
    PropertyBag bag;
    button.WriteProperties(bag);
    std::string keys;
    for (const QString& key : bag.keys()) keys += key.toStdString() + " ";
    EXPECT_EQ(keys,
              "Caption CapAlign Shape Font cFore cFHover cBhover Focus LockHover cGradient "
              "Gradient CapStyle ImgAlign Image ImgSize Enabled cBack mPointer mIcon "
              "GotFocusBorderColor HoverBorderColor ");
    EXPECT_EQ(bag.readProperty("ImgSize", {}), 32);
    XPButton other(desktop, nullptr, &host);
    other.ReadProperties(bag);
    EXPECT_EQ(stored(other), stored(button));
    EXPECT_EQ(other.accessKeySequence().toString(), "Alt+B");
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

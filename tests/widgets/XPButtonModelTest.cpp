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
        said = box.text.section(' ', 0, 1);
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

TEST(AdjustColor, TurnsRoundAtBlackAndWhiteAndInverts) {
    EXPECT_EQ(AdjustColor(0xFFFFFF, 0, true, true), 0xABC0BFU);  // 64 is white again, so back
    EXPECT_EQ(AdjustColor(0x808080, 300, true, true), kWhite);   // no turn helps
    EXPECT_EQ(AdjustColor(0x102030, 5, false, false, true), 0xEADACAU);
}

/// Steps in the life of a button, the advice that they give the designer, and what they lead to.
const struct Step {
    std::function<void(XPButton&)> set;
    const char* advice;
    int shape, captionAlign, pictureSize;
} kSteps[] = {
    {[](auto& one) { one.SetButtonShape(kCustomShape); }, "The Picture", 0, 2, 0},
    {[](auto& one) { one.SetPictureAlign(5); }, "", 0, 2, 0},
    {[](auto& one) { one.SetCaptionAlign(0); }, "", 0, 0, 0},
    {[](auto& one) { one.SetPicture(kBitmap); }, "", 0, 0, 0},
    {[](auto& one) { one.SetCaptionAlign(1); }, "When button", 0, 0, 0},
    {[](auto& one) { one.SetPictureAlign(4); }, "", 0, 2, 0},
    {[](auto& one) { one.SetButtonShape(kCustomShape); }, "", kCustomShape, 2, 4},
    {[](auto& one) { one.SetPictureSize(0); }, "The picture", kCustomShape, 2, 4},
    {[](auto& one) { one.SetPicture(kIcon); }, "Icons cannot", 0, 2, 4},
    {[](auto& one) { one.UserControl_AmbientChanged("displayasdefault"); }, "", 0, 2, 4},
    {[](auto& one) { one.SetShowFocusRect(false); }, "The focus", 0, 2, 4},
    {[](auto& one) { one.SetMouseIcon(kBitmap); }, "Select .ico", 0, 2, 4},
};

TEST_F(XPButtonModelTest, TakesAndRefusesByTheRulesOfMembersAndAdvisesTheDesigner) {
    for (const int bad : {-1, 99, 1 << 30}) {
        for (const auto set :
             {&XPButton::SetCaptionAlign, &XPButton::SetCaptionStyle, &XPButton::SetButtonShape,
              &XPButton::SetPictureAlign, &XPButton::SetPictureSize, &XPButton::SetGradientMode,
              &XPButton::SetHoverColorLocks})
            (button.*set)(bad);
    }
    button.SetMousePointer(16);
    EXPECT_EQ(host.told, "");
    host.displayAsDefault = true;
    for (const bool design : {true, false}) {
        host.userMode = !design;
        XPButton fresh(desktop, nullptr, &host);
        fresh.show();
        EXPECT_EQ(fresh.state().has(XPButtonState::kDefault), design);
        for (const Step& step : kSteps) {
            desktop.said.clear();
            step.set(fresh);
            const bool advises = design || &step == std::end(kSteps) - 1;
            EXPECT_EQ(desktop.said, advises ? step.advice : "");
            EXPECT_EQ(fresh.ButtonShape(), step.shape) << step.advice;
            EXPECT_EQ(fresh.CaptionAlign(), step.captionAlign) << step.advice;
            EXPECT_EQ(fresh.PictureSize(), step.pictureSize) << step.advice;
        }
        EXPECT_EQ(fresh.state().has(XPButtonState::kDefault), design);
        EXPECT_EQ(fresh.MousePointer(), 0);
        fresh.SetBackColor(kRed);
        fresh.SetHoverBackColor(kBlue);
        fresh.SetResetDefaultColors(true);
        EXPECT_EQ(fresh.BackColor(), design ? kButtonFace : kRed);
        EXPECT_EQ(fresh.HoverBackColor(), design ? kButtonFace : kBlue);
        EXPECT_EQ(fresh.HoverColorLocks(), design ? 0 : 1);
    }
}

TEST_F(XPButtonModelTest, MayBeDeletedWhileABoxAdvises) {
    host.userMode = false;
    host.displayAsDefault = true;
    for (const Step& last : kSteps) {
        if (*last.advice == '\0') continue;
        auto* one = new XPButton(desktop, nullptr, &host);
        desktop.meanwhile = {};
        for (const Step* step = kSteps; step != &last; ++step) step->set(*one);
        desktop.meanwhile = [&one] { delete std::exchange(one, nullptr); };
        last.set(*one);
        EXPECT_FALSE(one) << last.advice;
    }
}

TEST_F(XPButtonModelTest, HoverColoursFollowUntilLocked) {
    const struct {
        std::function<void()> set;
        ColorValue hoverBack, hoverFore;
        int locks;
        std::string told;
    } rows[] = {
        {[&] { button.SetBackColor(kRed); }, kRed, kButtonText, 0, "cBHover cBack "},
        {[&] { button.SetForeColor(kBlue); }, kRed, kBlue, 0, "cFHover cFore "},
        {[&] { button.SetGradientColor(kBlue); }, kRed, kBlue, 0, "cGradient "},
        {[&] { button.SetGradientMode(3); }, kBlue, kBlue, 0, "cBHover Gradient "},
        {[&] { button.SetGradientColor(kRed); }, kRed, kBlue, 0, "cBHover cGradient "},
        {[&] { button.SetBackColor(kBlue); }, kRed, kBlue, 0, "cBHover cBack "},
        {[&] { button.SetGradientMode(0); }, kBlue, kBlue, 0, "cBHover Gradient "},
        {[&] { button.SetHoverBackColor(kRed); }, kRed, kBlue, 1, "LockHover cBHover "},
        {[&] { button.SetHoverForeColor(kRed); }, kRed, kRed, 3, "LockHover cFHover "},
        {[&] { button.SetHoverBackColor(kBlue); }, kBlue, kRed, 3, "cBHover "},
        {[&] { button.SetBackColor(kRed); }, kBlue, kRed, 3, "cBack "},
        {[&] { button.SetForeColor(kButtonText); }, kBlue, kRed, 3, "cFore "},
        {[&] { button.SetHoverColorLocks(2); }, kRed, kRed, 2, "cBHover LockHover "},
        {[&] { button.SetHoverColorLocks(0); }, kRed, kButtonText, 0, "cFHover LockHover "},
    };
    for (const auto& row : rows) {
        row.set();
        EXPECT_EQ(button.HoverBackColor(), row.hoverBack) << row.told;
        EXPECT_EQ(button.HoverForeColor(), row.hoverFore) << row.told;
        EXPECT_EQ(button.HoverColorLocks(), row.locks) << row.told;
        EXPECT_EQ(std::exchange(host.told, {}), row.told) << row.told;
    }
}

TEST_F(XPButtonModelTest, TheFaceFollowsThePaletteAndThePointerTheIcon) {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(0x40, 0x40, 0x40));
    button.setPalette(palette);
    EXPECT_EQ(button.workingColors().FaceColor, 0x507070U);
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
        {"Save && &Close", "Alt+C", "Save & Close"}, {"None", "Alt+C", "None"},  // as it was
        {"Save && close", "", "Save & close"},                                   // a blank is none
        {"&One||&two", "Alt+T", "One two"},          {"End&", "", "End"},
    };
    for (const auto& [caption, key, spoken] : rows) {
        button.SetCaption(caption);
        EXPECT_EQ(button.accessKeySequence().toString(), key) << caption;
        EXPECT_EQ(spokenCaption(caption), spoken);
    }
}

/// What a button stores, as "key=value;" in the order of writing. A picture has no value here.
QString stored(const XPButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    QString text;
    for (const QString& key : bag.keys())
        text += key + '=' + bag.readProperty(key, QVariant()).toString() + ';';
    return text;
}

TEST_F(XPButtonModelTest, IsMadeAndReadWithTheDefaultsOfItsContainer) {
    host.backColor = kBlue;
    button.InitProperties();
    EXPECT_EQ(host.told, "Caption CapAlign Focus cFHover cBHover Font ");
    EXPECT_EQ(button.Caption(), "btnOne");
    EXPECT_EQ(button.Font().pointSize(), 11);
    PropertyBag nothing;
    button.ReadProperties(nothing);
    EXPECT_EQ(stored(button), "");
    EXPECT_EQ(button.HoverBackColor(), kBlue);
    QWidget container;
    container.setPalette(QPalette(Qt::blue, Qt::red));
    XPButton hostless(desktop, &container);
    hostless.ReadProperties(nothing);
    EXPECT_EQ(hostless.BackColor(), kRed);
}

TEST_F(XPButtonModelTest, ComesBackFromTheStoreAsItWasAndReadsNonsenseAsNothing) {
    const QString store =
        "Caption=a&b||c;CapAlign=1;Shape=3;Font=" + QFont("Courier New", 8).toString() +
        ";cFore=2147483653;cFHover=4;cBhover=5;Focus=false;LockHover=3;cGradient=1;Gradient=4;"
        "CapStyle=2;ImgAlign=3;Image=;ImgSize=32;Enabled=false;cBack=7;mPointer=3;mIcon=;"
        "GotFocusBorderColor=2;HoverBorderColor=6;";
    PropertyBag bag;
    for (const QString& member : store.split(';', Qt::SkipEmptyParts))
        bag.writeProperty(member.section('=', 0, 0), member.section('=', 1), {});
    bag.writeProperty("Image", kBitmap.toVariant(), {});
    bag.writeProperty("mIcon", kIcon.toVariant(), {});
    button.ReadProperties(bag);
    EXPECT_EQ(stored(button), store);
    EXPECT_EQ(button.Picture().image(), kBitmap.image());
    EXPECT_TRUE(button.MouseIcon().isIcon());
    EXPECT_EQ(button.HoverBorderColor(), ColorValue(6));
    EXPECT_EQ(button.accessKeySequence().toString(), "Alt+B");
    for (const QVariant& nonsense : {QVariant(qlonglong{1} << 40), QVariant(QVariantList{1, 2})}) {
        for (const QString& key : bag.keys())
            if (key != "Caption") bag.writeProperty(key, nonsense, {});
        button.ReadProperties(bag);
        EXPECT_EQ(stored(button), "Caption=a&b||c;");
    }
    for (const char* key : {"CapAlign", "Shape", "ImgSize", "mPointer"})
        bag.writeProperty(key, 41, {});
    button.ReadProperties(bag);
    EXPECT_EQ(stored(button), "Caption=a&b||c;") << "outside of their tables";
}

}  // namespace
}  // namespace brindlex

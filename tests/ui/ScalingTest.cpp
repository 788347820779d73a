#include "UiTest.h"
#include "driver/Message.h"
#include "driver/RemoteMemory.h"

namespace {

using UiDriver::Picture;

class Scaling : public UiTest {
protected:
    /// As the system tells a window that came to a screen of another scaling.
    void ScaleTo(int dpi) const {
        const RECT place = Dialog().Rect();
        const UiDriver::RemoteMemory memory(Dialog().Hwnd(), sizeof place);
        memory.Write(0, &place, sizeof place);
        UiDriver::Send(Dialog().Hwnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), memory.Param());
        Dialog().WaitUntilAnswers();
    }
};

TEST_F(Scaling, NothingStaysOnTheScreenOfTheFormerLayout) {
    Start();
    for (const int page : {1, 2, 0}) {
        OpenPage(page);
        const Picture before = Picture::CaptureStill(Dialog().Hwnd());
        ScaleTo(120);
        Picture::CaptureStill(Dialog().Hwnd());
        ScaleTo(96);
        EXPECT_EQ(UiDriver::DifferingPixels(before, Picture::CaptureStill(Dialog().Hwnd())), 0U)
            << "page " << page;
    }
}

TEST_F(Scaling, APageThatIsFirstShownAfterwardsLooksAsOneThatWasThere) {
    for (const int page : {1, 2}) {
        Start();
        OpenPage(page);
        ScaleTo(120);
        const Picture scaled = Picture::CaptureStill(Dialog().Hwnd());
        EndProgram();
        Start();
        ScaleTo(120);
        OpenPage(page);
        EXPECT_EQ(UiDriver::DifferingPixels(scaled, Picture::CaptureStill(Dialog().Hwnd())), 0U)
            << "page " << page;
        EndProgram();
    }
}

TEST_F(Scaling, TabsCanBeClickedAfterwards) {
    Start();
    for (const int dpi : {120, 192, 96}) {
        ScaleTo(dpi);
        for (const int page : {1, 2, 0}) {
            OpenPage(page);
        }
    }
}

TEST_F(Scaling, TabsCanBeClickedAfterARightClickOnThePage) {
    Start();
    OpenPage(1);
    for (const int dpi : {96, 120}) {
        ScaleTo(dpi);
        Item(IDC_cmdUserManager1).Click(UiDriver::MouseButton::Right);
        Dialog().WaitUntilAnswers();
        OpenPage(0);
        OpenPage(1);
    }
}

} // namespace

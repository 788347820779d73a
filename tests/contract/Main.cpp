#include "OtherProgram.h"
#include "platform/windows/Com.h"

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    if (const auto exitCode = OtherProgram::PlayRole()) {
        return *exitCode;
    }
    const ComApartment com;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: Apache-2.0
// A host that loads the library with dlopen(), uses it, unloads it and lives on: nothing that the
// application still holds of the window may point into memory that is gone.
#include "OBFeatureTree/OBFeatureTree.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cstdio>
#include <dlfcn.h>

namespace {

const char kDescription[] =
    "<RegisterDescription><Category Name=\"Root\"><pFeature>Image</pFeature></Category>"
    "<Category Name=\"Image\"><pFeature>Width</pFeature></Category>"
    "<Integer Name=\"Width\"/></RegisterDescription>";

constexpr int kPatienceMs = 60000;

std::atomic<int> s_reads{0};

int getFeature(int type, char*, void* value, void*)
{
    if (type != OB_FT_TYPE_INTEGER)
        return 1;
    static_cast<_ZDCC_INTVALUE_EX_T*>(value)->value = 640;
    ++s_reads;
    return 0;
}

int setFeature(int, char*, char*, void*)
{
    return 0;
}

int getMode(char*, int* mode, void*)
{
    *mode = OB_FT_ACCESS_READ_WRITE;
    return 0;
}

#define EXPECT(condition)                                                                          \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "failed: %s\n", #condition);                                      \
            return 1;                                                                              \
        }                                                                                          \
    } while (false)

int useAndUnload(const char* library)
{
    void* handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        std::fprintf(stderr, "%s\n", dlerror());
    EXPECT(handle);
    const auto init = reinterpret_cast<decltype(&OB_FT_Init)>(dlsym(handle, "OB_FT_Init"));
    const auto callbacks =
        reinterpret_cast<decltype(&OB_FT_SetCallBackFunc)>(dlsym(handle, "OB_FT_SetCallBackFunc"));
    const auto start = reinterpret_cast<decltype(&OB_FT_Start)>(dlsym(handle, "OB_FT_Start"));
    const auto release = reinterpret_cast<decltype(&OB_FT_Release)>(dlsym(handle, "OB_FT_Release"));
    EXPECT(init && callbacks && start && release);
    EXPECT(init(kDescription, nullptr, nullptr) == 0);
    EXPECT(callbacks(getFeature, setFeature, getMode, nullptr, nullptr, nullptr) == 0);
    EXPECT(start(nullptr, 0) == 0);
    EXPECT(QTest::qWaitFor([] { return s_reads > 0; }, kPatienceMs));
    for (QWidget* widget : QApplication::topLevelWidgets())
        widget->grab();
    EXPECT(release() == 0);
    EXPECT(dlclose(handle) == 0);
    return 0;
}

} // namespace

// Arguments: the library, and those that it needs.
int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    {
        QApplication application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        EXPECT(argc > 1);
        if (const int failed = useAndUnload(argv[1]))
            return failed;
        QCoreApplication::processEvents();
    }
    // Also when the application's end happens to touch none of it.
    for (int i = 1; i < argc; ++i)
        EXPECT(dlopen(argv[i], RTLD_NOW | RTLD_NOLOAD));
    std::puts("the application has outlived the library");
    return 0;
}

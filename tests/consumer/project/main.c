/* SPDX-License-Identifier: Apache-2.0 */
#include <OBFeatureTree/OBFeatureTree.h>

#include "application.h"

#include <stdio.h>
#include <string.h>

static const char description[] =
    "<RegisterDescription><Category Name=\"Root\"><pFeature>Image</pFeature></Category>"
    "<Category Name=\"Image\"><pFeature>Width</pFeature></Category>"
    "<Integer Name=\"Width\"/></RegisterDescription>";

static int reads = 0;
static int closed = 0;

static int get_feature(int type, char* name, void* value, void* user)
{
    (void)user;
    if (type != OB_FT_TYPE_INTEGER || strcmp(name, "Width") != 0)
        return 1;
    ++reads;
    ((_ZDCC_INTVALUE_EX_T*)value)->value = 640;
    ((_ZDCC_INTVALUE_EX_T*)value)->maximum = 4096;
    return 0;
}

static int set_feature(int type, char* name, char* value, void* user)
{
    (void)type, (void)name, (void)value, (void)user;
    return 0;
}

static int get_mode(char* name, int* mode, void* user)
{
    (void)name, (void)user;
    *mode = OB_FT_ACCESS_READ_WRITE;
    return 0;
}

static int action(int code, void* user)
{
    (void)user;
    if (code == OB_FT_ACTION_WINDOW_HIDDEN)
        closed = 1;
    return 0;
}

#define EXPECT(condition)                                                                          \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            fprintf(stderr, "failed: %s\n", #condition);                                           \
            return 1;                                                                              \
        }                                                                                          \
    } while (0)

int main(int argc, char** argv)
{
    _OB_FT_DEVICEINFO_ info;
    application_start(&argc, argv);
    EXPECT(OB_FT_Start(NULL, 0) == -1);
    EXPECT(OB_FT_Init(description, NULL, NULL) == 0);
    memset(&info, 0, sizeof(info));
    strcpy(info.deviceName, "Consumer camera");
    EXPECT(OB_FT_SetDeviceInfo(&info) == 0);
    EXPECT(OB_FT_SetCallBackFunc(get_feature, set_feature, get_mode, NULL, action, NULL) == 0);
    EXPECT(OB_FT_SetWidgetSize(800, 600) == 0);
    EXPECT(OB_FT_SetWidgetPosition(0, 0) == 0);
    EXPECT(OB_FT_Start(NULL, 0) == 0);
    application_run(1000);
    EXPECT(application_windows() == 1);
    EXPECT(reads > 0);
    EXPECT(OB_FT_Close() == 0 && closed);
    EXPECT(application_windows() == 0);
    EXPECT(OB_FT_Release() == 0);
    /* A host that ends while the window reads: the library releases itself. */
    EXPECT(OB_FT_Init(NULL, NULL, NULL) == 0);
    EXPECT(OB_FT_SetCallBackFunc(get_feature, set_feature, get_mode, NULL, action, NULL) == 0);
    EXPECT(OB_FT_Start(NULL, 0) == 0);
    application_end();
    EXPECT(OB_FT_Close() == -1);
    puts("the installed library opened its window");
    return 0;
}

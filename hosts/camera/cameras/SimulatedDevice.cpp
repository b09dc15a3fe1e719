// SPDX-License-Identifier: Apache-2.0
#include "cameras/SimulatedDevice.h"

#include "cameras/RegisterMemory.h"

#include <arv.h>

// GObject asks for these names and this layout.
struct ObftSimulatedDevice
{
    ArvDevice parent;
    RegisterMemory* memory; // Not owned.
};

struct ObftSimulatedDeviceClass
{
    ArvDeviceClass parent;
};

G_DEFINE_TYPE(ObftSimulatedDevice, obft_simulated_device, ARV_TYPE_DEVICE)

namespace {

RegisterMemory& memoryOf(ArvDevice* device)
{
    return *reinterpret_cast<ObftSimulatedDevice*>(device)->memory;
}

gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError**)
{
    memoryOf(device).read(address, buffer, size);
    return TRUE;
}

gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer, GError**)
{
    memoryOf(device).write(address, buffer, size);
    return TRUE;
}

gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError**)
{
    memoryOf(device).read(address, value, sizeof *value);
    return TRUE;
}

gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError**)
{
    memoryOf(device).write(address, &value, sizeof value);
    return TRUE;
}

} // namespace

static void obft_simulated_device_class_init(ObftSimulatedDeviceClass* klass)
{
    klass->parent.read_memory = readMemory;
    klass->parent.write_memory = writeMemory;
    klass->parent.read_register = readRegister;
    klass->parent.write_register = writeRegister;
}

static void obft_simulated_device_init(ObftSimulatedDevice*) {}

namespace SimulatedDevice {

GObjectPointer<ArvDevice> create(RegisterMemory* memory)
{
    auto* device =
        static_cast<ObftSimulatedDevice*>(g_object_new(obft_simulated_device_get_type(), nullptr));
    device->memory = memory;
    return GObjectPointer<ArvDevice>(&device->parent);
}

} // namespace SimulatedDevice

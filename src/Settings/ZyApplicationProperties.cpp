// SPDX-License-Identifier: BSD-3-Clause
// The configuration of the suite in our own types.
#include <ZyApplicationProperties.h>

#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyProperties.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include <keelbase/KbConfig.h>
#include <keelbase/YContainers.h>
#include <keelbase/YString.h>

ZyString ZyApplicationProperties::Read(ZyString const & section, ZyString const & key)
{
    YString value;
    if (cfgman_GetConfigSetting(section.c_str(), key.c_str(), &value, false) == 0) {
        throw ZyNotFoundException("Application property: [" + section + ", " + key + "]");
    }
    return ZyString(value);
}

void ZyApplicationProperties::Write(ZyString const & section, ZyString const & key, ZyString const & value)
{
    cfgman_WriteConfigSetting(section.c_str(), key.c_str(), value.c_str());
}

ZyDeque<ZyString> ZyApplicationProperties::PropertyNames(ZyString const & section)
{
    YList<YString> names;
    if (!cfgman_GetConfigKeyNames(section.toYString(), &names, false)) {
        throw ZyNotFoundException("Application properties not found in section: " + section);
    }
    return ZyDeque<ZyString>(names.begin(), names.end());
}

ZyProperties ZyApplicationProperties::ReadAll(ZyString const & section)
{
    ZyProperties properties;
    ZyDeque<ZyString> const names = PropertyNames(section);
    for (ZyString const & name : names.std_deque()) {
        properties.add(name, ZyVariant(Read(section, name)));
    }
    return properties;
}

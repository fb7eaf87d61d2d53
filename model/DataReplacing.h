#pragma once

namespace tamsel {

struct DataDump;

// A store whose whole contents can be replaced.
class DataReplacing {
public:
    virtual ~DataReplacing() = default;

    // Holds the document's part from now on, exactly, and saves and publishes it like any other edit.
    virtual void replace(const DataDump& dump) = 0;

    // Takes over what lies in the settings store now, and publishes it.
    virtual void reload() = 0;
};

} // namespace tamsel

// SPDX-License-Identifier: BSD-3-Clause
// A device of a host's own: what is written goes on to another one and is counted.
#include <ZyCore.h>

#include <iostream>

class CountingDevice final : public ZyIODevice
{
public:
    explicit CountingDevice(ZyIODevice & target) : m_target(target) {}
    ~CountingDevice() override { close(); }

    unsigned int lines() const { return m_lines; }

    // Positions mean nothing here, and there is nothing to read.
    void seek_read(unsigned int) override {}
    void seek_write(unsigned int) override {}
    bool atEnd() const override { return true; }

protected:
    // Called in fitting modes only: open() has refused a second call, write() a device that is not open for
    // it.
    bool onOpen(Mode mode) override
    {
        if (mode != Write) {
            setError("this device is for writing");
            return false;
        }
        return m_target.open(mode);
    }
    void onClose() override { m_target.close(); }
    ZyString onRead(unsigned int) override { return ZyString(); }
    unsigned int onWrite(ZyString const & text) override
    {
        m_lines += text == ZyString::NewLine() ? 1 : 0;
        return m_target.write(text); // fewer than given: write() keeps how many are missing in lastError()
    }

private:
    ZyIODevice & m_target;
    unsigned int m_lines = 0;
};

int main()
{
    ZyStringDevice memory;
    CountingDevice device(memory);
    std::cout << device.open(ZyIODevice::Read) << ' ' << device.lastError().c_str() << '\n';
    {
        ZyCSVWriter writer(device); // opens it for writing
        for (int run = 1; run <= 3; ++run) {
            writer.addValue(run);
            writer.addValue(run * 0.5);
            writer.endLine();
        }
    }
    device.close();
    std::cout << device.lines() << " lines, " << memory.content().size() << " bytes\n";
}

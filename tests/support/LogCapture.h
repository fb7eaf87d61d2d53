#pragma once

#include "platform/Log.h"

#include <QStringList>

#include <cstdio>
#include <cstdlib>

namespace tamsel::test {

// Collects the console lines that are logged while it lives.
class LogCapture {
public:
    LogCapture() : m_stream(open_memstream(&m_text, &m_size)) { setLogStream(m_stream); }
    ~LogCapture() {
        setLogStream(stdout);
        std::fclose(m_stream);
        std::free(m_text);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList lines() const {
        std::fflush(m_stream);
        return QString::fromUtf8(m_text, static_cast<qsizetype>(m_size)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_stream;
};

} // namespace tamsel::test

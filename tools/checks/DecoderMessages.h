#pragma once

#include <QString>

/// @brief Keeps what decoders of pictures say on standard error for as long as it lives: some write there themselves,
/// others by Qt's messages. One at a time, and for the whole process.
class DecoderMessages
{
public:
    DecoderMessages();
    ~DecoderMessages();
    Q_DISABLE_COPY(DecoderMessages) // standard error belongs to it

    /// What they have said, such as "libpng error: IDAT: CRC error": the first lines, with commas between them.
    QString text() const;

private:
    int m_standardError; // as it was
    int m_messages; // a file without a name
    QtMessageHandler m_handler; // as it was
};

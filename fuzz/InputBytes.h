#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/**
 * @brief Turns a fuzzer's input into arguments, from its beginning to its end; zeros and empty texts after that.
 *
 * Numbers and texts are mostly taken from a handful, so that rows and keys meet, and now and then from all there are.
 */
class InputBytes
{
public:
    InputBytes(const std::uint8_t *data, std::size_t size) : m_next(data), m_end(data + size)
    {
    }

    bool atEnd() const
    {
        return m_next == m_end;
    }

    std::uint8_t byte()
    {
        return atEnd() ? std::uint8_t{0} : *m_next++;
    }

    bool flag()
    {
        return byte() % 2 != 0;
    }

    /// A number from 0 to @p count - 1.
    int below(int count)
    {
        return byte() % count;
    }

    int number()
    {
        const std::uint8_t choice = byte();
        if (choice < 224) {
            return choice % 8 - 2;
        }
        std::int32_t any = 0;
        bytes(&any, sizeof(any));
        return any;
    }

    /// UTF-16, not necessarily well-formed.
    std::u16string text()
    {
        static const std::u16string few[] = {u"", u"a", u"A", u"root", u"\u4e2d\u6587", std::u16string(u"a\0b", 3)};
        const std::uint8_t choice = byte();
        if (choice < 224) {
            return few[choice % 6];
        }
        std::u16string any(choice % 4u, u'\0');
        bytes(any.data(), any.size() * sizeof(char16_t));
        return any;
    }

    /// Up to 31 bytes.
    std::string bytes()
    {
        std::string any(byte() % 32u, '\0');
        bytes(any.data(), any.size());
        return any;
    }

    /// A message of the backend, made from as much of up to 31 bytes as can be parsed.
    template<class Message>
    Message message()
    {
        Message message;
        message.ParsePartialFromString(bytes());
        return message;
    }

    /// A plain record in which every byte has the same value, but for those that follow.
    template<class Record>
    Record record()
    {
        Record record;
        std::memset(static_cast<void *>(&record), byte(), sizeof(record));
        return record;
    }

    /// Zero to three of what @p makeOne makes.
    template<class List, class Make>
    List list(Make makeOne)
    {
        List list;
        for (int count = below(4); count > 0; --count) {
            list.push_back(makeOne());
        }
        return list;
    }

private:
    void bytes(void *to, std::size_t size)
    {
        const std::size_t left = static_cast<std::size_t>(m_end - m_next);
        const std::size_t taken = size < left ? size : left;
        if (taken > 0) {
            std::memcpy(to, m_next, taken);
            m_next += taken;
        }
    }

    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

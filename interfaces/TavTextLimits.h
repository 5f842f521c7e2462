#pragma once

/**
 * @brief Lengths of the text buffers in the answer records, in bytes, the terminating NUL included.
 *
 * The texts are UTF-8. Whoever fills a record cuts what is too long before the last byte, not inside a character,
 * and always writes the NUL. The lengths are part of the records' layout: changing one changes every page plugin.
 */
namespace TavTextLimits
{
constexpr int Path = 4096; ///< absolute path: the kernel's PATH_MAX, which counts the NUL
constexpr int FileName = 256; ///< one name within a directory: NAME_MAX (255) and the NUL
constexpr int UserName = 33; ///< user or group name: 32, the most that useradd and the login records take, and the NUL
constexpr int FullName = 256; ///< real name of a user; Linux sets no limit, longer ones are cut
constexpr int HostName = 65; ///< host name: HOST_NAME_MAX (64) and the NUL
constexpr int KernelRelease = 65; ///< release and machine as uname gives them: 64 and the NUL
constexpr int ProcessName = 16; ///< process name: the kernel's TASK_COMM_LEN, which counts the NUL
constexpr int ModuleName = 56; ///< kernel module: MODULE_NAME_LEN, 64 - sizeof(unsigned long) on 64 bit, with the NUL
constexpr int Algorithm = 16; ///< name of a digest algorithm in the kernel's spelling, such as "sha256"
constexpr int Digest = 129; ///< digest in hexadecimal: 128 digits for SHA-512, the longest, and the NUL
constexpr int MeasureTemplate = 240; ///< IMA template: name or format, up to 15 fields of 15 bytes, 14 bars, the NUL
constexpr int CpuModel = 128; ///< processor's marketing name; x86 gives at most 47 bytes, other makers more
constexpr int OsName = 128; ///< pretty name of the distribution, longer ones are cut
constexpr int Detail = 1024; ///< free text for the user, longer ones are cut
}

#ifndef PLATFORM_CODES_H
#define PLATFORM_CODES_H

namespace velarion {

/** Results of the workstation's platform services. The numbers are fixed: callers store and print them. */
enum [[nodiscard]] platform_code : int{
    PLATFORM_OK = 0,
    PLATFORM_INVALID_ARGUMENT = 1, ///< such as a null pointer, an empty name, an unknown mode or width
    PLATFORM_NOT_FOUND = 2,        ///< no such file or language attribute
    PLATFORM_NAME_REFUSED = 3,     ///< a name that is malformed or leads through a link or a plain file
    PLATFORM_NOT_A_FILE = 4,       ///< the name belongs to a folder, a link or a device
    PLATFORM_TOO_LARGE = 5,        ///< a file beyond 32 bits; a message beyond its limit or the room for it
    PLATFORM_BAD_HANDLE = 6,       ///< a handle that is null, closed or was never given out
    PLATFORM_WRONG_MODE = 7,       ///< a read from a file open for writing, or the reverse
    PLATFORM_IO_ERROR = 8,         ///< any other failure of the operating system
    PLATFORM_NO_SPACE = 9,         ///< the file system is full, or a size or quota limit is reached
    PLATFORM_ACCESS_DENIED = 10,   ///< missing rights, or a read-only file system
    PLATFORM_NO_FOLDER = 11,       ///< no environment variable tells where the stores are
    PLATFORM_UNKNOWN_ITEM = 12,    ///< a setting that is neither known nor stored
    PLATFORM_STORE_DAMAGED = 13, ///< a settings file that is no settings store, or a row of it that is wrong
    PLATFORM_STORE_BUSY = 14,    ///< another process held the settings store for too long
    PLATFORM_OUT_OF_RANGE = 15,  ///< a value wider than its item, or a text that is too long
    PLATFORM_EXISTS = 16,        ///< a setting that is to be added is there already
    PLATFORM_LIBRARY_NOT_LOADED = 17,
    PLATFORM_SYMBOL_NOT_FOUND = 18,
    PLATFORM_NOT_READY = 19,       ///< no process serves the name, or it has not greeted yet
    PLATFORM_NO_ANSWER = 20,       ///< the service did not answer in time
    PLATFORM_CONNECTION_LOST = 21, ///< the other end went away; it may have seen the request
    PLATFORM_BAD_MESSAGE = 22,     ///< bytes that are no message of the message layer, or none to be expected
    PLATFORM_WOULD_BLOCK = 23,     ///< nothing to receive yet, or no room to send
    PLATFORM_ALREADY_SERVED = 24,  ///< another process serves the name
    PLATFORM_NOT_DURABLE = 25,     ///< done and seen by all, but a loss of power may undo it
};

/** Any thread. @return the code that stands for @p error, a non-zero value of errno */
platform_code platform_code_of_errno(int error);

} // namespace velarion

#endif

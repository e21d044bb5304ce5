#ifndef ZELDT_PLATFORM_RUNTIME_WINTYPES_H
#define ZELDT_PLATFORM_RUNTIME_WINTYPES_H

/// The Windows type names that the interfaces of this project use.
///
/// On Windows they are the system's own. On Linux they are defined here with the widths that
/// they have on Windows: DWORD and LONG are 32 bits although the language's `long` is wider.

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
// The order matters: windows.h first.
#include <windows.h>
#include <wtypes.h>

#else

typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef unsigned int DWORD;
typedef int LONG;
typedef unsigned int ULONG;
typedef int INT;
typedef unsigned int UINT;
typedef short SHORT;
typedef unsigned short USHORT;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
typedef char CHAR;
typedef char TCHAR;
typedef char* LPSTR;
typedef char* LPTSTR;
typedef const char* LPCSTR;
typedef const char* LPCTSTR;
typedef void* LPVOID;

/// One unit of wide text; 16 bits on both targets.
typedef unsigned short OLECHAR;
typedef OLECHAR* BSTR;
typedef const OLECHAR* LPCOLESTR;

typedef LONG HRESULT;
typedef LONG SCODE;

/// Days since 30 December 1899; the fraction is the time of day.
typedef double DATE;

/// A currency amount as OLE automation carries it: 1/10000 units in 64 bits.
typedef union tagCY {
    __extension__ struct {
        DWORD Lo;
        LONG Hi;
    };
    LONGLONG int64;
} CY;
typedef CY CURRENCY;

struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

/// A loaded module; on Linux the address at which it was loaded.
typedef struct ZelrtModule_* HMODULE;
typedef HMODULE HINSTANCE;

/// A window; on Linux an entry of the framework's table of windows.
typedef struct ZelrtWindow_* HWND;
typedef struct ZelrtMenu_* HMENU;

/// What a message carries along, and what its answer is.
typedef unsigned long long WPARAM;
typedef long long LPARAM;
typedef long long LRESULT;
typedef long long LONG_PTR;

/// Stands before the name of a function that the system calls.
#define CALLBACK
typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_INVALIDARG ((HRESULT)0x80070057)
#define E_OUTOFMEMORY ((HRESULT)0x8007000E)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000A)
#define SUCCEEDED(result) ((HRESULT)(result) >= 0)
#define FAILED(result) ((HRESULT)(result) < 0)

#endif

#endif

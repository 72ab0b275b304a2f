// uname: the machine field is the device's identifier, "iPhone10,3".
#pragma once
#ifdef __cplusplus
extern "C" {
#endif
struct utsname {
    char sysname[256];
    char nodename[256];
    char release[256];
    char version[256];
    char machine[256];
};
int uname(struct utsname* name);
#ifdef __cplusplus
}
#endif

// Letter classes of the C locale.
#pragma once
#ifdef __cplusplus
extern "C" {
#endif
int isalnum(int letter);
int isalpha(int letter);
int isdigit(int letter);
int isspace(int letter);
int isupper(int letter);
int islower(int letter);
int tolower(int letter);
int toupper(int letter);
#ifdef __cplusplus
}
#endif

"""Signed pointers through a linker that knows none; device/sign_pointers.py runs it."""

"""The checks of a built Vantori.dylib; device/audit.py runs them."""

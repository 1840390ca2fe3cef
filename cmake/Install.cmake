# Filled in with the package configuration.

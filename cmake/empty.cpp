// Placeholder translation unit for a library whose folders hold no source yet.

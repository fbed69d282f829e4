# Install rules: filled in below.

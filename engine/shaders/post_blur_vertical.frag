#version 450

uniform vec2 resolution;
uniform sampler2D fbo;
uniform sampler1D kernel_gauss;

in vec2 texcoord;
out vec4 outputColor;

// The offsets are rounded down: a kernel of 3 reaches from -2 to 0.
vec3 gauss_blur(vec2 coord, vec2 texel_size)
{
    int size = textureSize(kernel_gauss, 0);
    vec3 sum = vec3(0);
    for (int y = 0; y < size; ++y) {
        float weight = texture(kernel_gauss, y * (1.0 / size)).r;
        sum += weight * texture(fbo, coord + vec2(0, floor(y - (size / 2.0))) * texel_size).rgb;
    }
    return sum;
}

void main()
{
    float centerdist = length(texcoord * 2.0 - 1.0);
    vec2 texel_size = (vec2(1) / resolution) * (10 * pow(centerdist, 2));
    vec3 color_out = texture(fbo, texcoord).rgb;
    vec3 blurred = gauss_blur(texcoord, texel_size);
    outputColor = vec4(mix(color_out, blurred, 1.0), 1.0);
}

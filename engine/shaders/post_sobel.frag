#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

const int size = 3;
const float kernel_sobel_x[size * size] = float[](1, 0, -1, 2, 0, -2, 1, 0, -1);
const float kernel_sobel_y[size * size] = float[](1, 2, 1, 0, 0, 0, -1, -2, -1);

void main()
{
    vec2 texel_size = vec2(1) / resolution;
    vec3 res_x = vec3(0);
    vec3 res_y = vec3(0);
    // The offsets are rounded down: they reach from -2 to 0.
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            vec2 offset = vec2(floor(x - (size / 2.0)), floor(y - (size / 2.0))) * texel_size;
            vec3 color = texture(fbo, texcoord + offset).rgb;
            res_x += kernel_sobel_x[y * size + x] * color;
            res_y += kernel_sobel_y[y * size + x] * color;
        }
    }
    vec3 magnitude = sqrt(res_x * res_x + res_y * res_y);
    outputColor = vec4(vec3((magnitude.r + magnitude.g + magnitude.b) / 3.0), 1.0);
}

// QVILConversion: Gaussian noise on the colour channels of 8-bit, 16-bit and float RGBA buffers.
// The seed is copied to a local whose address goes to the primitive, so the advanced seed it
// writes back is lost; the status is dropped and the answer is always true.

#include "classes/buffer_region.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"

bool QVILConversion::imageLibAddRandomGaussian(const vImage_Buffer* buffer, int32_t mean, int32_t stDev,
                                               uint32_t pSeed) {
  unsigned int seed = pSeed;
  ippiAddRandGauss_Direct_8u_AC4IR(qv::frame::pixelsOf(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer),
                                   static_cast<Ipp8u>(mean), static_cast<Ipp8u>(stDev), &seed);
  return true;
}

bool QVILConversion::imageLibAddRandomGaussianInteger(const vImage_Buffer* buffer, int32_t mean, int32_t stDev,
                                                      uint32_t pSeed) {
  unsigned int seed = pSeed;
  ippiAddRandGauss_Direct_16u_AC4IR(qv::frame::pixelsOf<Ipp16u>(buffer), qv::frame::stepOf(buffer),
                                    qv::frame::regionOf(buffer), static_cast<Ipp16u>(mean), static_cast<Ipp16u>(stDev),
                                    &seed);
  return true;
}

bool QVILConversion::imageLibAddRandomGaussianFloat(const vImage_Buffer* buffer, int32_t mean, int32_t stDev,
                                                    uint32_t pSeed) {
  unsigned int seed = pSeed;
  ippiAddRandGauss_Direct_32f_AC4IR(qv::frame::pixelsOf<Ipp32f>(buffer), qv::frame::stepOf(buffer),
                                    qv::frame::regionOf(buffer), static_cast<Ipp32f>(mean), static_cast<Ipp32f>(stDev),
                                    &seed);
  return true;
}
